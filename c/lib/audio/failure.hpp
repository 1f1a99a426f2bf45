// The fatal path as the audio library takes it.
#pragma once

namespace wavepitch {

/// The source path that messages of the audio library carry.
inline constexpr char audioSourcePath[] = "../../../../c/lib/audio/audio";

} // namespace wavepitch

using wavepitch::audioSourcePath;

class cAudioFailure {
public:
    /// Fatal path A: myExit(msg).
    [[noreturn]] static void showErrorMsg(const char* msg);
};
