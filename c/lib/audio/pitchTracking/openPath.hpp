// The path search over a recording of any length: which candidates can still lie on the best path, and the
// frames whose choice is settled.
//
// Wherever the search stands, the best paths to all of its candidates go through few candidates of the frames
// before, and soon through one: from there back the path is settled, whatever follows. Only the candidates
// that such paths go through are kept.
//
// Source: G. D. Forney, "The Viterbi algorithm", Proceedings of the IEEE 61(3), 1973; D. Bloit and X. Rodet,
// "Short-time Viterbi for online HMM decoding", IEEE International Conference on Acoustics, Speech, and
// Signal Processing, 2008.
#pragma once

#include "audio/pitchTracking/forwardPass.hpp"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace wavepitch::pitchTracking {

/// The candidates of one frame.
struct FrameCandidates {
    const int* lag;      ///< count lags
    const double* value; ///< the frame's pitch function there
    std::size_t count;
    double atZero; ///< and at lag 0
};

/// Memory: that of the candidates of all frames since the last call of handOn; and for the frames that are
/// not settled 16 bytes for each candidate that a best path goes through and 50 bytes beside, where
/// consecutive frames through which all paths go straight count as one. At worst, where no two paths meet and
/// they change their lags in every frame, that is the memory of all candidates of the run.
class OpenPath {
public:
    /// Receives a frame's chosen lag, and the pitch function there by that at lag 0 (0 where that is 0), as
    /// far as it is known: not where paths have gone straight on for long.
    using Receiver = std::function<void(int frame, int lag, std::optional<double> ratio)>;

    /// @param ptParam  as for ForwardPass.
    OpenPath(const PTPARAM& ptParam, Receiver receiver);

    /// The next frame. One without candidates ends the run: all before it is handed on.
    void add(const FrameCandidates& candidates);

    /// Hands on the frames that are settled, and keeps of the others only what paths go through.
    void handOn();

    /// Ends the run.
    void end();

private:
    /// A candidate that a best path goes through.
    struct Node {
        double value;
        int lag;
        int prev; // the number of its best predecessor among the nodes of the frame before
    };

    /// A frame, or several with the same lags, each of which is its own best predecessor.
    struct Stretch {
        std::vector<Node> nodes; // the values are those of a single frame
        double atZero;           // of a single frame; of several 0 where all have 0 there
        int frameNum;

        bool goesOnIn(const Stretch& next) const;
        std::optional<double> ratio(const Node& node) const;
    };

    /// The candidates of the frames added since the last call of handOn, one frame after the other.
    struct Fresh {
        std::vector<Node> nodes;
        std::vector<std::size_t> start; // of each frame
        std::vector<double> atZero;
        std::vector<int> place; // new number of each node, dead ones have none

        std::size_t frameNum() const { return start.size(); }
        std::size_t end(std::size_t frame) const {
            return frame + 1 < frameNum() ? start[frame + 1] : nodes.size();
        }
        void clear();
    };

    void keep(std::vector<int> live);
    void dropDeadOfFresh(std::vector<int>& live);
    void dropDeadOfOpen(std::vector<int>& live);
    Stretch liveOf(std::size_t frame) const;
    void joinStretches();
    void handOnSettled();

    static constexpr int dead = -1;
    PF_TYPE pfType;
    ForwardPass pass;
    Receiver receive;
    Fresh fresh;
    std::deque<Stretch> open;
    std::size_t unchanged = 0; // stretches at the front of open in which nothing has died
    int nextFrame = 0;
};

} // namespace wavepitch::pitchTracking
