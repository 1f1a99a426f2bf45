// Octave puts the module's name before the text of an error. The commands of this module name themselves, as
// the functions that the user calls: the module's name is taken off again.

#include "mex.h"

#include <octave/quit.h>
#include <string>

/// The module, its mexFunction renamed.
extern "C" void gatewayFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);
extern "C" void moduleFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);

void moduleFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    try {
        gatewayFunction(nlhs, plhs, nrhs, prhs);
    } catch (octave::execution_exception& error) {
        const std::string prefix = std::string(mexFunctionName()) + ": ";
        const std::string message = error.message();
        if (message.rfind(prefix, 0) == 0) error.set_message(message.substr(prefix.size()));
        throw;
    }
}
