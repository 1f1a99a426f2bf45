#include "command.hpp"

#include <algorithm>
#include <numeric>

Call::Call(const Command& record, int nlhs, mxArray** plhs, int nrhs, const mxArray* const* prhs)
    : command(record.name), outputCount(std::max(nlhs, 1)), outputs(plhs), inputCount(nrhs), inputs(prhs) {}

Argument Call::input(int position, const char* name) const {
    return {command, name, inputs[position]};
}

Options Call::options(int position, const std::vector<const char*>& names) const {
    const int first = std::min(position, inputCount);
    return {command, names, inputs + first, inputCount - first};
}

double Call::valuesGiven() const {
    return std::accumulate(inputs, inputs + inputCount, 0.0, [](double sum, const mxArray* input) {
        return sum + static_cast<double>(mxGetM(input)) * static_cast<double>(mxGetN(input));
    });
}
