#include "utility/string/token.hpp"

#include "utility/string/blank.hpp"

#include <iterator>
#include <utility>

void string2token(const std::string& text, char delimiter, std::vector<std::string>& tokens, int append) {
    std::vector<std::string> fields;
    std::size_t begin = 0;
    while (!text.empty()) {
        const std::size_t end = text.find(delimiter, begin);
        fields.push_back(text.substr(begin, end - begin)); // to the end of the text where none is found
        if (end == std::string::npos) break;
        begin = end + 1;
    }
    if (append == 0) tokens.clear();
    tokens.insert(tokens.end(), std::make_move_iterator(fields.begin()),
                  std::make_move_iterator(fields.end()));
}

int str2tokenNum(const char* text, int length) {
    int count = 0;
    bool inWord = false;
    for (int i = 0; i < length && text[i] != '\n'; ++i) {
        const bool wasInWord = std::exchange(inWord, !isWhiteSpace(text[i]));
        if (inWord && !wasInWord) ++count;
    }
    return count;
}
