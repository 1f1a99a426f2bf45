#include "pitchParam.hpp"

#include "results.hpp"

#include "audio/audio.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace {

enum class Input { none, number, flag };

/// A field, how the user gives it, and the range that the tracker is safe and meaningful in.
struct Field {
    const char* name;
    std::variant<int PTPARAM::*, float PTPARAM::*, bool PTPARAM::*> member;
    double least;
    double most;
    Input input;
};

constexpr int leastFrameSize = 2;
constexpr double mostPitch = 200; // semitones
constexpr double mostWeight = 1e9;

const Field fields[] = {
    {"fs", &PTPARAM::fs, 1, mostInt, Input::none},
    {"nbits", &PTPARAM::nbits, 1, 32, Input::none},
    {"frameSize", &PTPARAM::frameSize, leastFrameSize, mostInt, Input::number},
    {"overlap", &PTPARAM::overlap, -mostInt, mostInt, Input::number},
    {"pfLen", &PTPARAM::pfLen, 2, mostInt, Input::number},
    {"ppcNum", &PTPARAM::ppcNum, 0, mostInt, Input::number},
    {"minPitch", &PTPARAM::minPitch, -mostPitch, mostPitch, Input::number},
    {"maxPitch", &PTPARAM::maxPitch, -mostPitch, mostPitch, Input::number},
    {"pitchRangeMax", &PTPARAM::pitchRangeMax, 0, mostPitch, Input::number},
    {"pitchDiffMax", &PTPARAM::pitchDiffMax, 0, mostPitch, Input::number},
    {"maxMedianPitchDiff", &PTPARAM::maxMedianPitchDiff, 0, mostPitch, Input::number},
    {"dpMethod", &PTPARAM::dpMethod, 0, mostInt, Input::number},
    {"dpPosDiffOrder", &PTPARAM::dpPosDiffOrder, 0, mostInt, Input::number},
    {"dpUseLocalOptim", &PTPARAM::dpUseLocalOptim, 0, mostInt, Input::number},
    {"pfWeight", &PTPARAM::pfWeight, -mostWeight, mostWeight, Input::number},
    {"indexDiffWeight", &PTPARAM::indexDiffWeight, -mostWeight, mostWeight, Input::number},
    {"useVolThreshold", &PTPARAM::useVolThreshold, 0, mostInt, Input::flag},
    {"useClarityThreshold", &PTPARAM::useClarityThreshold, 0, mostInt, Input::flag},
    {"clarityRatio", &PTPARAM::clarityRatio, 0, 1, Input::number},
    {"medianFilterOrder", &PTPARAM::medianFilterOrder, 0, mostInt, Input::number},
    {"cutLeadingTrailingZero", &PTPARAM::cutLeadingTrailingZero, 0, mostInt, Input::flag},
    {"maxAmdfLocalMinCount", &PTPARAM::maxAmdfLocalMinCount, 0, mostWeight, Input::number},
    {"minAmdfRange", &PTPARAM::minAmdfRange, 0, mostWeight, Input::number},
    {"halfOfFs", &PTPARAM::halfOfFs, 0, 1, Input::flag},
    {"halfOfNbits", &PTPARAM::halfOfNbits, 0, 1, Input::flag},
    {"frameRate", &PTPARAM::frameRate, -mostInt, mostInt, Input::none},
    {"minIndex", &PTPARAM::minIndex, -mostInt, mostInt, Input::none},
    {"maxIndex", &PTPARAM::maxIndex, -mostInt, mostInt, Input::none},
    {"useClarityWeight", &PTPARAM::useClarityWeight, 0, mostInt, Input::flag},
};

double valueOf(const PTPARAM& param, const Field& field) {
    return std::visit([&](auto member) { return static_cast<double>(param.*member); }, field.member);
}

void setField(PTPARAM& param, const Field& field, const Argument& argument) {
    const bool isFlag = field.input == Input::flag;
    const auto value = [&]<typename T>(T PTPARAM::*member) {
        if (isFlag)
            param.*member = static_cast<T>(argument.flag());
        else if constexpr (std::is_same_v<T, float>)
            param.*member = static_cast<float>(argument.number(field.least, field.most));
        else
            param.*member =
                static_cast<T>(argument.whole(static_cast<int>(field.least), static_cast<int>(field.most)));
    };
    std::visit(value, field.member);
}

} // namespace

const std::vector<const char*>& pitchParamNames() {
    static const std::vector<const char*> names = [] {
        std::vector<const char*> list{"pfType", "frameRate", "nbits", "paramFile"};
        for (const Field& field : fields)
            if (field.input != Input::none) list.push_back(field.name);
        return list;
    }();
    return names;
}

PTPARAM readPitchParam(const Call& call, const Options& options, int fs, int nbits) {
    const auto pfType = static_cast<PF_TYPE>(
        options.has("pfType") ? options["pfType"].choice({{"amdf", PF_AMDF}, {"acf", PF_ACF}}, true)
                              : PF_ACF);
    PTPARAM param{};
    const bool hasFrameRate = options.has("frameRate");
    if (hasFrameRate) {
        const auto frameRate = static_cast<float>(options["frameRate"].number(1e-3, fs));
        cAudio::ptParamSet(&param, frameRate, fs, nbits, pfType);
    } else {
        cAudio::ptParamSet(&param, fs, nbits, pfType, nullptr);
    }
    const PTPARAM asked = param;
    if (options.has("frameSize"))
        param.pfLen = std::max(leastFrameSize, options["frameSize"].whole(leastFrameSize) / 2);
    if (options.has("paramFile")) {
        options["paramFile"].readFile([&](const char* file) { cAudio::ptParamRead(file, &param); });
        param.fs = fs;
        param.nbits = nbits;
        if (options.has("pfType")) param.pfType = pfType;
        if (hasFrameRate) {
            param.frameSize = asked.frameSize;
            param.overlap = asked.overlap;
        }
    }
    for (const Field& field : fields)
        if (field.input != Input::none && options.has(field.name))
            setField(param, field, options[field.name]);
    if (hasFrameRate && options.has("frameSize") && !options.has("overlap")) // the rate stays
        param.overlap = clampToInt(std::int64_t{param.frameSize} - asked.frameSize + asked.overlap);
    checkPitchParam(call, param, asked);
    if (options.has("paramFile") && !hasFrameRate && !options.has("frameSize"))
        cAudio::checkFrameDuration(param); // as ptParamSet does with its file
    param.frameRate = static_cast<int>(fs / (static_cast<double>(param.frameSize) - param.overlap));
    return param;
}

void checkPitchParam(const Call& call, const PTPARAM& param, const PTPARAM& usual) {
    for (const Field& field : fields) {
        const double value = valueOf(param, field);
        if (value >= field.least && value <= field.most) continue;
        const std::string range = " must be from " + textOf(field.least) + " to " + textOf(field.most);
        if (value == valueOf(usual, field)) // nobody gave it
            call.refuse("FS = " + textOf(usual.fs) + " makes " + upperCase(field.name) + " = " +
                        textOf(value) + ", which" + range);
        call.refuse(upperCase(field.name) + range + ", not " + textOf(value));
    }
    if (param.pfType != PF_AMDF && param.pfType != PF_ACF)
        call.refuse("PFTYPE must be 0 or 1, not " + std::to_string(param.pfType));
    if (param.overlap >= param.frameSize)
        call.refuse("OVERLAP = " + std::to_string(param.overlap) +
                    " must be below FRAMESIZE = " + std::to_string(param.frameSize));
    if (param.pfLen > param.frameSize)
        call.refuse("PFLEN = " + std::to_string(param.pfLen) +
                    " must not exceed FRAMESIZE = " + std::to_string(param.frameSize));
    if (param.minPitch > param.maxPitch) call.refuse("MINPITCH must not exceed MAXPITCH");
}

mxArray* structOf(const PTPARAM& param) {
    std::vector<const char*> names;
    for (const Field& field : fields) names.push_back(field.name);
    names.insert(names.begin() + 2, "pfType");
    mxArray* array = mxCreateStructMatrix(1, 1, static_cast<int>(names.size()), names.data());
    for (const Field& field : fields) mxSetField(array, 0, field.name, scalar(valueOf(param, field)));
    mxSetField(array, 0, "pfType", scalar(param.pfType));
    return array;
}
