// Which version of the kernels runs, as tests and measurements choose it. Programs and modules that link
// kernelVersion.cpp take its choice in place of the library's own.
#pragma once

#include <string>

/// The versions' names, narrowest first.
inline constexpr const char* kernelVersions[] = {"portable", "avx2", "avx512"};

/// Kernels run in the version of this name from now on, in every thread, or in the widest one that the
/// processor has where it lacks that one; by any other name in the widest.
void chooseKernelVersion(const std::string& name);

/// Kernels run in a version while it lives.
class KernelVersion {
public:
    explicit KernelVersion(const std::string& name) { chooseKernelVersion(name); }
    ~KernelVersion() { chooseKernelVersion("widest"); }
    KernelVersion(const KernelVersion&) = delete;
    KernelVersion& operator=(const KernelVersion&) = delete;
};
