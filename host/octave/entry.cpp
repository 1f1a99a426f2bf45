// The entry point of every module that is built for GNU Octave. Octave ends its process when an exception
// other than its own leaves mexFunction: here it becomes the host's error, which the session survives. Octave
// puts the module's name before the text of an error; a module's own errors begin with the name that the user
// called. Where the user has hit Ctrl-C, Octave's own question throws its interruption out of the library's
// work.

#include "utility/interruption.hpp"

#include "mex.h"

#include <exception>
#include <octave/quit.h>
#include <string>

/// The module behind this entry point, its mexFunction renamed.
extern "C" void moduleFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);

namespace {

/// Takes off the name that Octave has put before the name in the text.
void dropAddedName(octave::execution_exception& error) {
    const std::string added = std::string(mexFunctionName()) + ": ";
    const std::string message = error.message();
    if (message.rfind(added, 0) == 0) error.set_message(message.substr(added.size()));
}

} // namespace

[[gnu::visibility("default")]] void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    const wavepitch::utility::Interruptible interruptible(octave_quit);
    std::string message;
    try {
        moduleFunction(nlhs, plhs, nrhs, prhs);
        return;
    } catch (octave::execution_exception& error) { // the host's errors, interrupts and exits are its own
        dropAddedName(error);
        throw;
    } catch (const octave::interrupt_exception&) {
        throw;
    } catch (const octave::exit_exception&) {
        throw;
    } catch (const char* text) {
        message = text;
    } catch (const std::exception& error) {
        message = std::string("unexpected exception: ") + error.what();
    } catch (...) {
        message = "unexpected exception of unknown type";
    }
    mexErrMsgTxt(message.c_str());
}
