#include "utility/file/table.hpp"

#include "utility/fatal.hpp"
#include "utility/file/open.hpp"
#include "utility/file/scan.hpp"
#include "utility/fileHandle.hpp"

#include <algorithm>
#include <array>
#include <string_view>

template <typename T>
void readBinTable(const char* path, T* array, int n) {
    const FileHandle file(openFile(path, "rb"));
    // By way of a buffer: at the end of a short file, fread leaves a part of a value behind.
    std::array<T, 1024> buffer;
    for (std::size_t left = n > 0 ? static_cast<std::size_t>(n) : 0; left > 0;) {
        const std::size_t count =
            std::fread(buffer.data(), sizeof(T), std::min(left, buffer.size()), file.get());
        if (count == 0) break;
        array = std::copy_n(buffer.data(), count, array);
        left -= count;
    }
}

template <typename T>
void readTxtTable(const char* path, T* array, int n) {
    const FileHandle file(openFile(path, "r"));
    std::FILE* stream = file.get();
    for (int i = 0; i < n && !std::feof(stream) && !std::ferror(stream); ++i) scanNumber(stream, array[i]);
}

template <typename T>
void readTable(const char* path, T* array, int n) {
    const std::string_view extension = path ? getExtName(path) : "";
    if (extension == "bin" || extension == "BIN")
        readBinTable(path, array, n);
    else if (extension == "txt" || extension == "TXT")
        readTxtTable(path, array, n);
    else
        myExitFormatted("Error in reading %s: The only allowed extensions are \"txt\" and \"bin\" "
                        "(line %d of %s)",
                        path ? path : "(null)", __LINE__, utilitySourcePath);
}

template void readBinTable(const char*, double*, int);
template void readBinTable(const char*, float*, int);
template void readBinTable(const char*, int*, int);
template void readTxtTable(const char*, double*, int);
template void readTxtTable(const char*, float*, int);
template void readTxtTable(const char*, int*, int);
template void readTable(const char*, double*, int);
template void readTable(const char*, float*, int);
template void readTable(const char*, int*, int);
