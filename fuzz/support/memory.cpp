#include "support/memory.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t most = std::size_t{16} << 20;
bool isBounded = false;

void* allocated(std::size_t size, std::size_t alignment) noexcept {
    if (isBounded && size > most) return nullptr;
    if (alignment <= alignof(std::max_align_t)) return std::malloc(std::max<std::size_t>(size, 1));
    void* block = nullptr;
    return posix_memalign(&block, alignment, size) == 0 ? block : nullptr;
}

void* allocatedOrThrow(std::size_t size, std::size_t alignment) {
    void* const block = allocated(size, alignment);
    if (!block) throw std::bad_alloc();
    return block;
}

} // namespace

MemoryBound::MemoryBound() {
    isBounded = true;
}

MemoryBound::~MemoryBound() {
    isBounded = false;
}

extern "C" const char* __asan_default_options() { // NOLINT(bugprone-reserved-identifier): the sanitizer's
    return "allocator_may_return_null=1:max_allocation_size_mb=32:quarantine_size_mb=16";
}

void* operator new(std::size_t size) {
    return allocatedOrThrow(size, 1);
}

void* operator new[](std::size_t size) {
    return allocatedOrThrow(size, 1);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocatedOrThrow(size, static_cast<std::size_t>(alignment));
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
    return allocatedOrThrow(size, static_cast<std::size_t>(alignment));
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocated(size, 1);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocated(size, 1);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete[](void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete(void* block, std::align_val_t) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::align_val_t) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
    std::free(block);
}
