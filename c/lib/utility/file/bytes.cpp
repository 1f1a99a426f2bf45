#include "utility/file/bytes.hpp"

#include "utility/fatal.hpp"
#include "utility/file/open.hpp"
#include "utility/fileHandle.hpp"

#include <algorithm>
#include <cstdlib>

namespace {

struct BufferDeleter {
    void operator()(char* buffer) const { std::free(buffer); }
};

using ByteBuffer = std::unique_ptr<char, BufferDeleter>;

} // namespace

void fileWrite(const char* path, const char* buffer, long size) {
    const FileHandle file(openFile(path, "wb"));
    if (size > 0) std::fwrite(buffer, 1, static_cast<std::size_t>(size), file.get());
}

char* fileRead(const char* path, long& size) {
    const long wanted = getFileSize(path);
    const auto count = static_cast<std::size_t>(wanted);
    ByteBuffer buffer(static_cast<char*>(std::malloc(count > 0 ? count : 1)));
    if (!buffer)
        myExitFormatted("Cannot allocate %ld bytes for file %s in fileRead (line %d of %s)", wanted, path,
                        __LINE__, utilitySourcePath);
    const FileHandle file(openFile(path, "rb"));
    size = static_cast<long>(std::fread(buffer.get(), 1, count, file.get()));
    return buffer.release();
}

void fileRead(const char* path, std::string& content) {
    long size = 0;
    const ByteBuffer buffer(fileRead(path, size));
    content.assign(buffer.get(), std::find(buffer.get(), buffer.get() + size, '\0'));
}
