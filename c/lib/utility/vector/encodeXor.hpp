// Coding of a buffer with a repeating key.
#pragma once

/// Combines each byte with a byte of the key by exclusive or, the key starting over after its last byte. The
/// same call decodes: twice restores the buffer.
///
/// @param buffer     length bytes, changed in place.
/// @param key        keyLength bytes.
/// A length or a keyLength below 1 changes nothing.
void encodeXor(char* buffer, int length, const char* key, int keyLength);
