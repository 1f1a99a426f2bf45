// The package's functions in Python, below what wavepitch/_functions.py makes of them: a border, which
// computes and checks nothing. A call lets other threads run while the library works.

#include "arrays.hpp"
#include "functions.hpp"

#include "library/command.hpp"
#include "utility/interruption.hpp"

#include <algorithm>
#include <chrono>
#include <pybind11/stl.h>
#include <utility>

namespace py = pybind11;

namespace {

/// What the library tells the console during a call; one that a signal's handler makes within has its own.
class Printed {
public:
    Printed() : outer(std::exchange(current, this)) {
        standIn::setConsole([](std::string_view more) { current->text += more; });
    }
    ~Printed() { current = outer; }
    Printed(const Printed&) = delete;
    Printed& operator=(const Printed&) = delete;

    std::string text;

private:
    static thread_local Printed* current;
    Printed* outer;
};

thread_local Printed* Printed::current = nullptr;

/// Whether an array, or one of its cells, is of a class that no function takes.
bool isForeign(const mxArray& array) {
    return array.classID == mxUNKNOWN_CLASS ||
           std::any_of(array.fields.begin(), array.fields.end(), isForeign);
}

/// Makes the library's report Python's: lack of memory, a class of values that no function takes, or else a
/// wrong value.
[[noreturn]] void raise(const std::string& command, const std::vector<mxArray>& inputs,
                        const std::string& message) {
    const bool ofNoClass = std::any_of(inputs.begin(), inputs.end(), isForeign);
    PyObject* kind = ofNoClass ? PyExc_TypeError : PyExc_ValueError;
    if (message == command + ": " + lackOfMemory) kind = PyExc_MemoryError;
    PyErr_SetObject(kind, pythonText(message).ptr());
    throw py::error_already_set();
}

/// Ends the work: Python has the exception of the signal's handler.
struct Interrupted {};

/// Lets Python handle signals, as that of Ctrl-C. Ten times a second will do: its lock may have to be waited
/// for.
void askPython() {
    using Clock = std::chrono::steady_clock;
    thread_local Clock::time_point asked;
    const Clock::time_point now = Clock::now();
    if (now - asked < std::chrono::milliseconds(100)) return;
    asked = now;
    const py::gil_scoped_acquire python;
    if (PyErr_CheckSignals() != 0) throw Interrupted();
}

/// The outputs of a command, and what it has told. Signals are handled while a call of the main thread works.
py::tuple call(const std::string& command, const py::list& values, int outputCount, bool inMainThread) {
    std::vector<mxArray> inputs = {hostArray(py::bytes(command))};
    for (const py::handle value : values) inputs.push_back(hostArray(value));
    std::vector<std::unique_ptr<mxArray>> outputs;
    const Printed printed;
    try {
        const wavepitch::utility::Interruptible interruptible(inMainThread ? askPython : nullptr);
        const py::gil_scoped_release others;
        outputs = standIn::call(mexFunction, outputCount, inputs);
    } catch (const standIn::HostError& error) {
        raise(command, inputs, error.what());
    } catch (const Interrupted&) {
        throw py::error_already_set();
    }
    py::list results;
    for (auto& output : outputs) results.append(pythonObject(std::move(output)));
    return py::make_tuple(results, pythonText(printed.text));
}

} // namespace

PYBIND11_MODULE(_wavepitch, module) {
    py::class_<Function>(module, "Function")
        .def_readonly("name", &Function::name)
        .def_readonly("summary", &Function::summary)
        .def_readonly("help", &Function::help)
        .def_readonly("inputs", &Function::inputs)
        .def_readonly("least", &Function::least)
        .def_readonly("options", &Function::options)
        .def_property_readonly("outputs", [](const Function& function) {
            std::vector<std::string> names;
            for (const Output& output : function.outputs) names.push_back(output.name);
            return names;
        });
    module.def("functions", functions, "All functions, in the order of the package's index.");
    module.def("call", call, py::arg("command"), py::arg("values"), py::arg("outputCount"),
               py::arg("inMainThread"),
               "Outputs of a command and what it has told, for bytes or an aligned array in Fortran order "
               "for each input.");
}
