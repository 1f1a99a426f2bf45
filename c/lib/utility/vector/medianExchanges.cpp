// The range is kept as a tree whose order from left to right is that of the values, balanced by random
// priorities (R. Seidel and C. R. Aragon, "Randomized search trees", Algorithmica 16, 1996). Each subtree
// knows its least and its largest rank, so that the next value on one side of a pivot is found in the height
// of the tree. A partition keeps one side and drops the other; only what is dropped is touched:
//   the values below the pivot stay in their order, but for the last of them, which comes to the front, where
//   the pivot stood;
//   the others are a queue: each value below the pivot that is found sends the first one found before it to
//   the back.
#include "utility/vector/medianExchanges.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace wavepitch::utility::medianSelection {

namespace {

constexpr int none = -1;

struct Node {
    int rank; ///< an unordered value's is above all
    int least;
    int most;
    int left = none;
    int right = none;
    std::uint32_t priority;
};

/// Trees over the same nodes; a tree is the number of its root, or none.
class Trees {
public:
    Trees(const std::vector<int>& rank, int above) {
        std::uint32_t state = 1;
        for (const int r : rank) {
            state = state * 1664525U + 1013904223U; // W. H. Press and others, "Numerical Recipes"
            const int own = r == unordered ? above : r;
            nodes.push_back({.rank = own, .least = own, .most = own, .priority = state});
        }
    }

    int rankOf(int tree) const { return at(tree).rank; }
    int leastOf(int tree) const { return at(tree).least; }

    int joined(int front, int back) {
        if (front == none) return back;
        if (back == none) return front;
        if (at(front).priority > at(back).priority) {
            at(front).right = joined(at(front).right, back);
            return updated(front);
        }
        at(back).left = joined(front, at(back).left);
        return updated(back);
    }

    /// Splits a tree in front of the first value that is below a limit, or that is not.
    std::pair<int, int> splitAtFirst(int tree, int limit, bool below) {
        if (tree == none) return {none, none};
        const int left = at(tree).left;
        if (left != none && (below ? at(left).least < limit : at(left).most >= limit)) {
            const auto [front, back] = splitAtFirst(left, limit, below);
            at(tree).left = back;
            return {front, updated(tree)};
        }
        if ((at(tree).rank < limit) == below) {
            at(tree).left = none;
            return {left, updated(tree)};
        }
        const auto [front, back] = splitAtFirst(at(tree).right, limit, below);
        at(tree).right = front;
        return {updated(tree), back};
    }

    int takeFirst(int& tree) { return takeEnd<&Node::left, &Node::right>(tree); }
    int takeLast(int& tree) { return takeEnd<&Node::right, &Node::left>(tree); }

private:
    Node& at(int tree) { return nodes[static_cast<std::size_t>(tree)]; }
    const Node& at(int tree) const { return nodes[static_cast<std::size_t>(tree)]; }

    int updated(int tree) {
        Node& node = at(tree);
        node.least = node.most = node.rank;
        for (const int side : {node.left, node.right}) {
            if (side == none) continue;
            node.least = std::min(node.least, at(side).least);
            node.most = std::max(node.most, at(side).most);
        }
        return tree;
    }

    template <int Node::*outer, int Node::*inner>
    int takeEnd(int& tree) {
        if (at(tree).*outer != none) {
            const int end = takeEnd<outer, inner>(at(tree).*outer);
            updated(tree);
            return end;
        }
        const int end = std::exchange(tree, at(tree).*inner);
        at(end).*inner = none;
        return updated(end);
    }

    std::vector<Node> nodes;
};

/// How many values of each rank are left: sums of stretches (P. M. Fenwick, "A new data structure for
/// cumulative frequency tables", Software: Practice and Experience 24, 1994).
class Counts {
public:
    explicit Counts(int most) : sums(static_cast<std::size_t>(most) + 1) {}

    void add(int rank, int count) {
        for (auto i = static_cast<std::size_t>(rank); i < sums.size(); i += i & (~i + 1)) sums[i] += count;
    }

    int below(int rank) const {
        int count = 0;
        for (auto i = static_cast<std::size_t>(rank) - 1; i > 0; i &= i - 1) count += sums[i];
        return count;
    }

private:
    std::vector<int> sums;
};

class Selection {
public:
    explicit Selection(const std::vector<int>& rank)
        : above(static_cast<int>(rank.size()) + 1), trees(rank, above), counts(above) {
        for (int i = 0; i + 1 < above; ++i) {
            range = trees.joined(range, i);
            counts.add(trees.rankOf(i), 1);
        }
    }

    MiddlePlaces around(int k) {
        int behind = none; // the pivot that stands behind the range
        while (true) {
            const int pivot = trees.takeFirst(range);
            const int rank = trees.rankOf(pivot);
            counts.add(rank, -1);
            const int limit = rank == above ? 1 : rank; // nothing is below an unordered value
            const int place = counts.below(limit);
            if (place > k) {
                keepBelow(limit);
                behind = pivot;
                continue;
            }
            dropBelow(limit);
            if (place == k) return {pivot, range == none ? behind : firstSmallest()};
            k -= place + 1;
        }
    }

private:
    void keepBelow(int limit) {
        int kept = none;
        while (true) {
            const auto [front, rest] = trees.splitAtFirst(range, limit, false);
            kept = trees.joined(kept, front);
            if (rest == none) break;
            range = rest;
            drop(trees.takeFirst(range));
        }
        const int last = trees.takeLast(kept);
        range = trees.joined(last, kept);
    }

    void dropBelow(int limit) {
        int queue = none;
        while (true) {
            const auto [front, rest] = trees.splitAtFirst(range, limit, true);
            queue = trees.joined(queue, front);
            if (rest == none) break;
            range = rest;
            drop(trees.takeFirst(range));
            if (queue == none) continue;
            const int first = trees.takeFirst(queue);
            queue = trees.joined(queue, first);
        }
        range = queue;
    }

    void drop(int value) { counts.add(trees.rankOf(value), -1); }

    /// The first value, if it is unordered, as it compares with none; else the first of the smallest.
    int firstSmallest() {
        const int first = trees.takeFirst(range);
        if (trees.rankOf(first) == above || range == none) return first;
        if (trees.leastOf(range) >= trees.rankOf(first)) return first;
        range = trees.splitAtFirst(range, trees.leastOf(range) + 1, true).second;
        return trees.takeFirst(range);
    }

    int above; // the rank of unordered values in the trees
    Trees trees;
    Counts counts;
    int range = none;
};

} // namespace

MiddlePlaces byExchanges(const std::vector<int>& rank, int k) {
    return Selection(rank).around(k);
}

} // namespace wavepitch::utility::medianSelection
