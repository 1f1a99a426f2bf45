#include "audio/pitchTracking/paramFile.hpp"

#include "audio/failure.hpp"
#include "utility/classicLocale.hpp"
#include "utility/fatal.hpp"
#include "utility/file/file.hpp"
#include "utility/file/lines.hpp"
#include "utility/fileHandle.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using wavepitch::utility::ClassicLocale;

int integerIn(const char* text) {
    return clampToInt(std::strtol(text, nullptr, 10));
}

double numberIn(const char* text) {
    return std::strtod(text, nullptr);
}

template <int PTPARAM::*field>
void setInteger(PTPARAM& ptParam, const char* text) {
    ptParam.*field = integerIn(text);
}

template <float PTPARAM::*field>
void setFloat(PTPARAM& ptParam, const char* text) {
    ptParam.*field = static_cast<float>(numberIn(text));
}

void setType(PTPARAM& ptParam, const char* text) {
    ptParam.pfType = static_cast<PF_TYPE>(integerIn(text));
}

/// The one integer that may be written as a fraction.
void setUseLocalOptim(PTPARAM& ptParam, const char* text) {
    ptParam.dpUseLocalOptim = truncateToInt(numberIn(text));
}

constexpr struct {
    const char* key;
    void (*set)(PTPARAM& ptParam, const char* text);
} readers[] = {
    {"fs", setInteger<&PTPARAM::fs>},
    {"nbits", setInteger<&PTPARAM::nbits>},
    {"pfType", setType},
    {"frameSize", setInteger<&PTPARAM::frameSize>},
    {"overlap", setInteger<&PTPARAM::overlap>},
    {"pfLen", setInteger<&PTPARAM::pfLen>},
    {"ppcNum", setInteger<&PTPARAM::ppcNum>},
    {"minPitch", setFloat<&PTPARAM::minPitch>},
    {"maxPitch", setFloat<&PTPARAM::maxPitch>},
    {"pitchRangeMax", setFloat<&PTPARAM::pitchRangeMax>},
    {"pitchDiffMax", setFloat<&PTPARAM::pitchDiffMax>},
    {"maxMedianPitchDiff", setFloat<&PTPARAM::maxMedianPitchDiff>},
    {"dpMethod", setInteger<&PTPARAM::dpMethod>},
    {"dpPosDiffOrder", setInteger<&PTPARAM::dpPosDiffOrder>},
    {"dpUseLocalOptim", setUseLocalOptim},
    {"pfWeight", setFloat<&PTPARAM::pfWeight>},
    {"indexDiffWeight", setFloat<&PTPARAM::indexDiffWeight>},
    {"useVolThreshold", setInteger<&PTPARAM::useVolThreshold>},
    {"useClarityThreshold", setInteger<&PTPARAM::useClarityThreshold>},
    {"clarityRatio", setFloat<&PTPARAM::clarityRatio>},
    {"medianFilterOrder", setInteger<&PTPARAM::medianFilterOrder>},
    {"cutLeadingTrailingZero", setInteger<&PTPARAM::cutLeadingTrailingZero>},
};

void writeLine(std::FILE* file, const char* key, int value) {
    std::fprintf(file, "%s=%d\n", key, value);
}

void writeLine(std::FILE* file, const char* key, float value) {
    std::fprintf(file, "%s=%f\n", key, static_cast<double>(value));
}

template <typename Value>
void printLine(const char* name, Value value, int line) {
    std::cout << "ptParam->" << name << '=' << value << " (line=" << line << ", file=" << audioSourcePath
              << ')' << std::endl; // NOLINT(performance-avoid-endl): the dump is complete line by line
}

} // namespace

void cAudioPitchParamFile::ptParamRead(const char* fileName, PTPARAM* ptParam) {
    const ClassicLocale locale;
    std::vector<std::string> keys;
    std::vector<std::string> values;
    keyValuePairRead(fileName, keys, values);
    for (size_t i = 0; i < keys.size(); ++i) {
        const auto* reader = std::find_if(std::begin(readers), std::end(readers),
                                          [&](const auto& candidate) { return keys[i] == candidate.key; });
        if (reader == std::end(readers))
            myExitFormatted("Error in parsing %s, unknown key = %s (line %d in %s)", fileName,
                            keys[i].c_str(), __LINE__, audioSourcePath);
        reader->set(*ptParam, values[i].c_str());
    }
}

void cAudioPitchParamFile::ptParamWrite(const PTPARAM* ptParam, const char* fileName) {
    const ClassicLocale locale;
    const FileHandle file(openFile(fileName, "w"));
    const auto write = [&](const char* key, auto value) { writeLine(file.get(), key, value); };
    write("fs", ptParam->fs);
    write("nbits", ptParam->nbits);
    write("frameSize", ptParam->frameSize);
    write("overlap", ptParam->overlap);
    write("minPitch", ptParam->minPitch);
    write("maxPitch", ptParam->maxPitch);
    write("pitchRangeMax", ptParam->pitchRangeMax);
    write("ppcNum", ptParam->ppcNum);
    write("pfWeight", ptParam->pfWeight);
    write("indexDiffWeight", ptParam->indexDiffWeight);
    write("dpMethod", ptParam->dpMethod);
    write("dpPosDiffOrder", ptParam->dpPosDiffOrder);
    write("dpUseLocalOptim", ptParam->dpUseLocalOptim);
    write("maxMedianPitchDiff", ptParam->maxMedianPitchDiff);
    write("maxAmdfLocalMinCount", truncateToInt(static_cast<double>(ptParam->maxAmdfLocalMinCount)));
    write("minAmdfRange", ptParam->minAmdfRange);
    write("halfOfFs", ptParam->halfOfFs ? 1 : 0);
    write("halfOfNbits", ptParam->halfOfNbits ? 1 : 0);
    write("useVolThreshold", ptParam->useVolThreshold);
    write("cutLeadingTrailingZero", ptParam->cutLeadingTrailingZero);
}

void cAudioPitchParamFile::ptParamPrint(const PTPARAM* ptParam) {
    printLine("fs", ptParam->fs, __LINE__);
    printLine("nbits", ptParam->nbits, __LINE__);
    printLine("pfType", static_cast<int>(ptParam->pfType), __LINE__);
    printLine("frameSize", ptParam->frameSize, __LINE__);
    printLine("overlap", ptParam->overlap, __LINE__);
    printLine("pfLen", ptParam->pfLen, __LINE__);
    printLine("ppcNum", ptParam->ppcNum, __LINE__);
    printLine("pitchRangeMax", ptParam->pitchRangeMax, __LINE__);
    printLine("pitchDiffMax", ptParam->pitchDiffMax, __LINE__);
    printLine("minPitch", ptParam->minPitch, __LINE__);
    printLine("maxPitch", ptParam->maxPitch, __LINE__);
    printLine("maxMedianPitchDiff", ptParam->maxMedianPitchDiff, __LINE__);
    printLine("dpMethod", ptParam->dpMethod, __LINE__);
    printLine("dpPosDiffOrder", ptParam->dpPosDiffOrder, __LINE__);
    printLine("dpUseLocalOptim", ptParam->dpUseLocalOptim, __LINE__);
    printLine("pfWeight", ptParam->pfWeight, __LINE__);
    printLine("indexDiffWeight", ptParam->indexDiffWeight, __LINE__);
    printLine("useVolThreshold", ptParam->useVolThreshold, __LINE__);
    printLine("useClarityThreshold", ptParam->useClarityThreshold, __LINE__);
    printLine("clarityRatio", ptParam->clarityRatio, __LINE__);
    printLine("medianFilterOrder", ptParam->medianFilterOrder, __LINE__);
    printLine("cutLeadingTrailingZero", ptParam->cutLeadingTrailingZero, __LINE__);
}
