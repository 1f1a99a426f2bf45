// Memory ends early: an operator new that throws above a bound, in place of the standard library's, and, with
// the address sanitizer, a malloc that gives null. So calls that ask for much show in a moment what they do
// where there is too little.
#pragma once

/// The bound holds while it lives; one at a time. The fuzzer itself takes more.
class MemoryBound {
public:
    MemoryBound();
    ~MemoryBound();
    MemoryBound(const MemoryBound&) = delete;
    MemoryBound& operator=(const MemoryBound&) = delete;
};
