// Numbers as text, the same whatever locale the host has set: "1.5" is no one and a half where numbers have a
// comma.
#pragma once

#include <locale.h>

namespace wavepitch::utility {

/// While one exists, the C library reads and writes text in this thread as it does in its "C" locale; then as
/// before. Other threads, and the host's own setlocale, are not touched: POSIX gives each thread a locale.
/// Where there is no memory for that of "C", text stays as the host has it.
class ClassicLocale {
public:
    ClassicLocale() {
        static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
        before = uselocale(classic);
    }
    ~ClassicLocale() { uselocale(before); }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;

private:
    locale_t before;
};

} // namespace wavepitch::utility
