#include "utility/vector/encodeXor.hpp"

void encodeXor(char* buffer, int length, const char* key, int keyLength) {
    if (keyLength < 1) return;
    for (int i = 0, k = 0; i < length; ++i) {
        buffer[i] = static_cast<char>(buffer[i] ^ key[k]);
        if (++k == keyLength) k = 0;
    }
}
