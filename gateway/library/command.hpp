// A command of the library's module: what the host's user calls, and the call while it runs.
#pragma once

#include "arguments.hpp"

#include <limits>
#include <span>
#include <string>
#include <vector>

#include "mex.h"

class Call;

struct Command {
    const char* name;
    int leastInputs; ///< behind the command's name
    int mostInputs;  ///< without name-value pairs; anyNumber where the command takes them
    int mostOutputs;
    const char* usage;
    void (*run)(Call& call);
};

/// The module's commands. Usage reads "[OUTPUT, ...] = NAME (INPUT, ...)", where the inputs "name, value,
/// ..." stand for name-value pairs.
std::span<const Command> commands();

inline constexpr int anyNumber = std::numeric_limits<int>::max();

/// Inputs and output slots of one call, the numbers of both already checked.
class Call {
public:
    Call(const Command& record, int nlhs, mxArray** plhs, int nrhs, const mxArray* const* prhs);

    /// The input at a position from 0, under the name that messages give it.
    Argument input(int position, const char* name) const;
    /// Whether there is an input at that position.
    bool has(int position) const { return position < inputCount; }
    /// The name-value pairs from a position on; names are those of the option list, in any case.
    Options options(int position, const std::vector<const char*>& names) const;

    /// Whether the user asked for an output, by position from 0. The first is always wanted.
    bool wants(int position) const { return position < outputCount; }
    /// Sets an output that is wanted.
    void give(int position, mxArray* array) { outputs[position] = array; }

    /// Reports "COMMAND: RULE" through the host; does not return.
    [[noreturn]] void refuse(const std::string& rule) const { ::refuse(command, rule); }

private:
    const char* command;
    int outputCount;
    mxArray** outputs;
    int inputCount;
    const mxArray* const* inputs;
};

// The commands, one file for each room of the library.

void wave2pfMatCommand(Call& call);

void wave2pitchCommand(Call& call);
void wave2f0Command(Call& call);
void wave2pvCommand(Call& call);
void isWaveSilenceCommand(Call& call);
void ptParamCommand(Call& call);

void endPointsCommand(Call& call);
void wave2volumeCommand(Call& call);
void wave2zcrCommand(Call& call);
void wave2ashodCommand(Call& call);
void waveVolumeCheckCommand(Call& call);

void wave2framesCommand(Call& call);

void absSpectrogramCommand(Call& call);
void uvCutCommand(Call& call);

void waveFilterCommand(Call& call);
void waveEchoCommand(Call& call);
void waveResampleCommand(Call& call);
void pitch2waveCommand(Call& call);
void note2waveCommand(Call& call);
void note2pvCommand(Call& call);
void pitch2freqCommand(Call& call);
void freq2pitchCommand(Call& call);

void findTuneCommand(Call& call);

void linearScalingCommand(Call& call);
void lrShiftDistCommand(Call& call);
void setCoverCommand(Call& call);
