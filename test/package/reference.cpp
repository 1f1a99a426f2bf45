// reference WAVE DIR: what the library itself computes for calls in calls.json, without a module or a host.
// WAVE is a recording of examples/; output N of the call NAME becomes the file DIR/NAME.N of doubles.
#include "support/operations.hpp"
#include "utility/file/file.hpp"

int main(int, char** argv) {
    const std::string directory = argv[2];
    runOperations(readRecording(argv[1]), [&](const std::string& output, const Doubles& values) {
        const std::string file = directory + "/" + output;
        fileWrite(file.c_str(), reinterpret_cast<const char*>(values.data()),
                  static_cast<long>(values.size() * sizeof(double)));
    });
}
