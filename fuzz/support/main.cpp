// What every target starts with: a console that swallows everything, a bound for memory, an input as Bytes.
#include "support/target.hpp"

#include "support/check.hpp"
#include "support/memory.hpp"

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    standIn::setConsole([](std::string_view) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes({data, size});
    const MemoryBound bound;
    returns([&] { fuzz(bytes); });
    return 0;
}
