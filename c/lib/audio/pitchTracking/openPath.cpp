#include "audio/pitchTracking/openPath.hpp"

#include "audio/pitchTracking/pathEnd.hpp"

#include <algorithm>
#include <utility>

namespace wavepitch::pitchTracking {

using std::size_t;

namespace {

/// Turns marks (0 for a live node) into new numbers; returns how many there are.
int number(int* place, int* end) {
    int next = 0;
    for (; place != end; ++place)
        if (*place == 0) *place = next++;
    return next;
}

} // namespace

OpenPath::OpenPath(const PTPARAM& ptParam, Receiver receiver)
    : pfType(ptParam.pfType), pass(ptParam), receive(std::move(receiver)) {}

void OpenPath::Fresh::clear() {
    nodes.clear();
    start.clear();
    atZero.clear();
}

void OpenPath::add(const FrameCandidates& candidates) {
    if (candidates.count == 0) {
        end();
        ++nextFrame;
        return;
    }
    pass.advance(candidates.lag, candidates.value, candidates.count);
    fresh.start.push_back(fresh.nodes.size());
    fresh.atZero.push_back(candidates.atZero);
    for (size_t j = 0; j < candidates.count; ++j)
        fresh.nodes.push_back({candidates.value[j], candidates.lag[j], pass.predecessors()[j]});
    ++nextFrame;
}

void OpenPath::handOn() {
    if (pass.count() > 0) keep(std::vector<int>(pass.count(), 0));
}

void OpenPath::end() {
    if (pass.count() == 0) return;
    std::vector<int> live(pass.count(), dead);
    live[static_cast<size_t>(bestEnd(pass.totals(), pass.count(), pfType))] = 0;
    keep(std::move(live));
    pass.advance(nullptr, nullptr, 0);
}

/// Drops the nodes that no path to a live one of the last frame goes through, and hands on what is settled.
///
/// @param live  0 for each live candidate of the last frame.
void OpenPath::keep(std::vector<int> live) {
    dropDeadOfFresh(live);
    dropDeadOfOpen(live);
    for (size_t frame = 0; frame < fresh.frameNum(); ++frame) open.push_back(liveOf(frame));
    fresh.clear();
    handOnSettled();
    joinStretches();
}

/// From the last frame back; live becomes the marks of the frame before the first fresh one.
void OpenPath::dropDeadOfFresh(std::vector<int>& live) {
    if (fresh.frameNum() == 0) return;
    fresh.place.assign(fresh.nodes.size(), dead);
    std::copy(live.begin(), live.end(), fresh.place.end() - static_cast<std::ptrdiff_t>(live.size()));
    live.assign(open.empty() ? 0 : open.back().nodes.size(), dead);
    for (size_t frame = fresh.frameNum(); frame-- > 0;) {
        int* before = frame > 0 ? fresh.place.data() + fresh.start[frame - 1] : live.data();
        int* place = fresh.place.data();
        number(place + fresh.start[frame], place + fresh.end(frame));
        if (frame == 0 && live.empty()) return;
        for (size_t j = fresh.start[frame]; j < fresh.end(frame); ++j)
            if (place[j] != dead) before[fresh.nodes[j].prev] = 0;
    }
}

/// As far back as something dies.
void OpenPath::dropDeadOfOpen(std::vector<int>& live) {
    unchanged = open.size();
    while (unchanged > 0) {
        std::vector<Node>& nodes = open[unchanged - 1].nodes;
        const int left = number(live.data(), live.data() + live.size());
        if (static_cast<size_t>(left) == nodes.size()) return;
        if (unchanged < open.size())
            for (Node& node : open[unchanged].nodes) node.prev = live[static_cast<size_t>(node.prev)];
        else
            for (size_t j = 0; fresh.frameNum() > 0 && j < fresh.end(0); ++j)
                fresh.nodes[j].prev = live[static_cast<size_t>(fresh.nodes[j].prev)];
        for (size_t j = 0; j < nodes.size(); ++j)
            if (live[j] != dead) nodes[static_cast<size_t>(live[j])] = nodes[j];
        nodes.resize(static_cast<size_t>(left));
        if (2 * nodes.size() < nodes.capacity()) nodes.shrink_to_fit();
        --unchanged;
        live.assign(unchanged > 0 ? open[unchanged - 1].nodes.size() : 0, dead);
        if (unchanged > 0)
            for (const Node& node : nodes) live[static_cast<size_t>(node.prev)] = 0;
    }
}

/// A fresh frame's live nodes.
OpenPath::Stretch OpenPath::liveOf(size_t frame) const {
    Stretch result{{}, fresh.atZero[frame], 1};
    for (size_t j = fresh.start[frame]; j < fresh.end(frame); ++j) {
        if (fresh.place[j] == dead) continue;
        Node node = fresh.nodes[j];
        if (frame > 0) node.prev = fresh.place[fresh.start[frame - 1] + static_cast<size_t>(node.prev)];
        result.nodes.push_back(node);
    }
    return result;
}

bool OpenPath::Stretch::goesOnIn(const Stretch& next) const {
    if (nodes.size() != next.nodes.size()) return false;
    for (size_t j = 0; j < nodes.size(); ++j)
        if (nodes[j].lag != next.nodes[j].lag || next.nodes[j].prev != static_cast<int>(j)) return false;
    return true;
}

std::optional<double> OpenPath::Stretch::ratio(const Node& node) const {
    if (atZero == 0.0) return 0.0;
    return frameNum == 1 ? std::optional(node.value / atZero) : std::nullopt;
}

/// Makes one of consecutive stretches that paths go straight through, as far as anything has changed.
void OpenPath::joinStretches() {
    size_t last = unchanged > 0 ? unchanged - 1 : 0;
    for (size_t i = last + 1; i < open.size(); ++i) {
        if (open[last].goesOnIn(open[i])) {
            open[last].frameNum += open[i].frameNum;
            if (open[last].atZero == 0.0) open[last].atZero = open[i].atZero;
        } else if (++last != i) {
            open[last] = std::move(open[i]);
        }
    }
    if (!open.empty()) open.resize(last + 1);
}

/// What lies before the last frame in which all paths meet, that frame included.
void OpenPath::handOnSettled() {
    size_t settled = open.size();
    int frame = nextFrame;
    while (settled > unchanged && open[settled - 1].nodes.size() != 1) frame -= open[--settled].frameNum;
    if (settled == unchanged) return;
    size_t chosen = 0;
    for (size_t i = settled; i-- > 0;) {
        const Node node = open[i].nodes[chosen];
        for (int k = 0; k < open[i].frameNum; ++k) receive(--frame, node.lag, open[i].ratio(node));
        chosen = i > 0 ? static_cast<size_t>(node.prev) : 0;
    }
    open.erase(open.begin(), open.begin() + static_cast<std::ptrdiff_t>(settled));
    unchanged = 0;
}

} // namespace wavepitch::pitchTracking
