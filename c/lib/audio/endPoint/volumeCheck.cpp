#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "audio/failure.hpp"
#include "utility/classicLocale.hpp"
#include "utility/fatal.hpp"
#include "utility/file/lines.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

namespace {

constexpr VOL_CHECK_PRM defaults{140.0F, 30.0F, 0.95F, 0.005F};

constexpr struct {
    const char* name;
    float VOL_CHECK_PRM::*value;
} fields[] = {{"maxVolTh", &VOL_CHECK_PRM::maxVolTh},
              {"minVolTh", &VOL_CHECK_PRM::minVolTh},
              {"satAmpRatio", &VOL_CHECK_PRM::satAmpRatio},
              {"satSampleCountRatioTh", &VOL_CHECK_PRM::satSampleCountRatioTh}};

bool isGiven(const char* fileName) {
    return fileName && *fileName != '\0';
}

} // namespace

void cAudioEndPoint::volCheckPrmRead(const char* fileName, VOL_CHECK_PRM* prm) {
    if (!isGiven(fileName)) {
        *prm = defaults;
        return;
    }
    std::vector<std::string> keys;
    std::vector<std::string> values;
    const wavepitch::utility::ClassicLocale locale;
    keyValuePairRead(fileName, keys, values);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto* field = std::find_if(std::begin(fields), std::end(fields),
                                         [&](const auto& f) { return keys[i] == f.name; });
        if (field == std::end(fields))
            myExitFormatted("Error in parsing %s, unknown key = %s (line %d in %s)", fileName,
                            keys[i].c_str(), __LINE__, audioSourcePath);
        prm->*(field->value) = static_cast<float>(std::atof(values[i].c_str()));
    }
}

void cAudioEndPoint::volCheckPrmPrint(const VOL_CHECK_PRM* prm) {
    for (const auto& field : fields)
        std::cout << "volCheckPrm->" << field.name << "=" << prm->*(field.value) << " (line=" << __LINE__
                  << ", file=" << audioSourcePath << ")" << std::endl;
}

int cAudioEndPoint::waveVolumeCheck(const int* wave, int waveLen, const char* fileName) {
    constexpr int frameSize = 320;
    VOL_CHECK_PRM prm = defaults;
    volCheckPrmRead(fileName, &prm);
    const wavepitch::endPoint::Levels volume =
        wavepitch::endPoint::frameVolumes(wave, waveLen, {frameSize, 160});
    if (volume.empty()) return 1;
    const auto [quietest, loudest] = std::minmax_element(volume.begin(), volume.end());

    const float limit = prm.satAmpRatio * 32768.0F;
    std::int64_t saturated = 0;
    for (int i = 0; i < waveLen; ++i) {
        const auto sample = static_cast<float>(wave[i]);
        saturated += (sample > limit ? 1 : 0) + (sample < -limit ? 1 : 0);
    }
    const float perFrame = static_cast<float>(saturated) / static_cast<float>(volume.size());
    if (perFrame > prm.satSampleCountRatioTh) return 3;
    if (static_cast<float>(*quietest) > prm.minVolTh * static_cast<float>(frameSize)) return 2;
    if (prm.maxVolTh * static_cast<float>(frameSize) > static_cast<float>(*loudest)) return 1;
    return 0;
}
