// The entries are sorted once by element, which gives both each set's elements in order and each element's
// sets. Every set carries the number of its elements that are not yet covered; when an element is covered,
// the numbers of the sets that hold it go down by one, so that no step looks at the matrix again.
#include "utility/setCover/setCover.hpp"

#include "utility/interruption.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

struct Entry {
    double element;
    std::size_t row;
    bool operator<(const Entry& other) const {
        return element < other.element || (element == other.element && row < other.row);
    }
    bool operator==(const Entry&) const = default;
};

constexpr std::size_t stepsOfComparison = 8; // of LongWork, while sorting

/// The distinct entries that are element numbers, by element and then by row.
std::vector<Entry> sortedEntries(const double* sets, std::size_t rowNum, std::size_t colNum) {
    std::vector<Entry> entries;
    entries.reserve(rowNum * colNum);
    for (std::size_t c = 0; c < colNum; ++c)
        for (std::size_t r = 0; r < rowNum; ++r) {
            const double element = std::trunc(sets[r + c * rowNum]);
            if (element >= 1.0 && std::isfinite(element)) entries.push_back({element, r});
        }
    wavepitch::utility::LongWork work;
    std::sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        work.took(stepsOfComparison);
        return a < b;
    });
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    return entries;
}

/// Which elements are left for each set to cover.
class Cover {
public:
    Cover(const double* sets, std::size_t rowNum, std::size_t colNum)
        : entries(sortedEntries(sets, rowNum, colNum)), firstOfRow(rowNum + 1), left(rowNum),
          entriesOfRow(entries.size()), covered(entries.size()) {
        for (const Entry& entry : entries) ++left[entry.row];
        for (std::size_t r = 0; r < rowNum; ++r) firstOfRow[r + 1] = firstOfRow[r] + left[r];
        std::vector<std::size_t> next(firstOfRow);
        for (std::size_t e = 0; e < entries.size(); ++e) entriesOfRow[next[entries[e].row]++] = e;
    }

    /// Writes each row's elements in increasing order, followed by zeros.
    void write(double* sets, std::size_t rowNum, std::size_t colNum) const {
        std::fill(sets, sets + rowNum * colNum, 0.0);
        for (std::size_t r = 0; r < rowNum; ++r)
            for (std::size_t i = firstOfRow[r]; i < firstOfRow[r + 1]; ++i)
                sets[r + (i - firstOfRow[r]) * rowNum] = entries[entriesOfRow[i]].element;
    }

    double largestElement() const { return entries.empty() ? 0.0 : entries.back().element; }

    /// The first row with the most elements left.
    std::size_t bestRow() const {
        return static_cast<std::size_t>(std::max_element(left.begin(), left.end()) - left.begin());
    }

    /// Covers what is left of a row.
    ///
    /// @return  the number of elements newly covered.
    std::size_t take(std::size_t row) {
        const std::size_t added = left[row];
        for (std::size_t i = firstOfRow[row]; i < firstOfRow[row + 1]; ++i)
            if (!covered[entriesOfRow[i]]) coverElementOf(entriesOfRow[i]);
        return added;
    }

private:
    /// Marks all entries of an element, which stand next to each other, and takes them off their rows.
    void coverElementOf(std::size_t entry) {
        const double element = entries[entry].element;
        while (entry > 0 && entries[entry - 1].element == element) --entry;
        for (; entry < entries.size() && entries[entry].element == element; ++entry) {
            covered[entry] = 1;
            --left[entries[entry].row];
        }
    }

    std::vector<Entry> entries;
    std::vector<std::size_t> firstOfRow;   // where each row begins in entriesOfRow
    std::vector<std::size_t> left;         // per row: elements not yet covered
    std::vector<std::size_t> entriesOfRow; // row after row, each by element
    std::vector<char> covered;             // per entry
};

} // namespace

int setCover(double* sets, int rowNum, int colNum, int maxSetNum, int* chosen, double* coverage) {
    if (maxSetNum < 1) maxSetNum = 0;
    std::fill(chosen, chosen + maxSetNum, 0);
    std::fill(coverage, coverage + maxSetNum, 1.0);
    if (rowNum < 1 || colNum < 1) return 0;
    const auto rows = static_cast<std::size_t>(rowNum);
    const auto columns = static_cast<std::size_t>(colNum);
    Cover cover(sets, rows, columns);
    cover.write(sets, rows, columns);
    const double elements = cover.largestElement();
    double coveredNum = 0.0;
    int taken = 0;
    wavepitch::utility::LongWork work;
    while (taken < maxSetNum && coveredNum < elements) {
        work.took(rows);
        const std::size_t row = cover.bestRow();
        const std::size_t added = cover.take(row);
        if (added == 0) break;
        coveredNum += static_cast<double>(added);
        chosen[taken] = static_cast<int>(row);
        coverage[taken] = coveredNum / elements;
        ++taken;
    }
    return taken;
}
