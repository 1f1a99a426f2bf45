#include "audio/failure.hpp"

#include "utility/fatal.hpp"

void cAudioFailure::showErrorMsg(const char* msg) {
    myExit(msg);
}
