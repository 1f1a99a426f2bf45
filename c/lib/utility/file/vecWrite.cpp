#include "utility/file/vecWrite.hpp"

#include <cstdlib>
#include <iostream>
#include <locale>

std::ofstream utilityDetail::openRowFile(const char* path) {
    std::ofstream file;
    file.imbue(std::locale::classic());
    if (path) file.open(path);
    if (!file.is_open()) {
        std::cout << "Error: Cannot open \"" << (path ? path : "(null)") << "\"!" << std::endl;
        std::exit(1);
    }
    return file;
}
