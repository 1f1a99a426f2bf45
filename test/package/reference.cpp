// reference WAVE DIR: what the library itself computes of a recording of examples/, each result a file of
// doubles in DIR, without a module or a host.

#include "audio/audio.hpp"
#include "utility/utility.hpp"

#include "support/recording.hpp"

#include <cstdlib>

namespace {

std::string directory;

template <typename Values>
void write(const std::string& name, const Values& values) {
    const std::vector<double> numbers(values.begin(), values.end());
    fileWrite((directory + "/" + name).c_str(), reinterpret_cast<const char*>(numbers.data()),
              static_cast<long>(numbers.size() * sizeof(double)));
}

} // namespace

int main(int, char** argv) {
    const auto [fs, wave] = readRecording(argv[1]);
    directory = argv[2];
    std::vector<double> unit(wave.begin(), wave.end());
    for (double& sample : unit) sample /= 32768;
    const auto waveLen = static_cast<int>(wave.size());

    for (const PF_TYPE type : {PF_AMDF, PF_ACF}) {
        PTPARAM param{};
        cAudio::ptParamSet(&param, fs, 16, type, nullptr);
        const auto frameNum =
            static_cast<std::size_t>(cAudio::getFrameNum2(waveLen, param.frameSize, param.overlap));
        std::vector<double> pitch(frameNum);
        std::vector<double> clarity(frameNum);
        std::vector<double> pfMat(frameNum * static_cast<std::size_t>(param.pfLen));
        ptByDpOverPfOnce<double, int>(wave.data(), waveLen, param, pitch.data(), clarity.data(), pfMat.data(),
                                      nullptr);
        write("pitch" + std::to_string(type), pitch);
        write("clarity" + std::to_string(type), clarity);
        write("pfMat" + std::to_string(type), pfMat);
    }
    VOICEPARAM param;
    param.fs = fs;
    const VOICESIZES sizes = voiceSizes(waveLen, param);
    const auto frameNumOfVoice = static_cast<std::size_t>(sizes.frameNum);
    std::vector<double> f0(frameNumOfVoice);
    std::vector<double> strength(frameNumOfVoice);
    std::vector<float> correlation(frameNumOfVoice * static_cast<std::size_t>(sizes.lagNum));
    wave2f0(wave.data(), waveLen, param, f0.data(), strength.data(), correlation.data());
    write("f0", f0);
    write("strength", strength);
    write("correlation", correlation);
    int* pv = nullptr;
    int pvLen = 0;
    cAudio::bGetPitch(std::vector<short>(wave.begin(), wave.end()), pv, pvLen, fs, 16);
    write("pv", std::vector<int>(pv, pv + pvLen));
    std::free(pv);

    const auto frameNum = static_cast<std::size_t>(cAudio::getFrameNum2(waveLen, 256, 128));
    std::vector<int> volume(frameNum);
    wave2volume(wave.data(), waveLen, 256, 128, volume.data(), 1);
    write("volume", volume);
    std::vector<double> magnitude(frameNum * 129);
    cAudio::absSpectrogram(unit.data(), waveLen, 256, 128, 256, 1, magnitude.data());
    write("magnitude", magnitude);
    std::vector<double> echo(unit.size());
    cAudio::waveEcho(unit.data(), waveLen, fs, 0.1, 0.5, echo.data());
    write("echo", echo);
    EPDPARAM epdParam;
    cAudio::epdParamSet(fs, epdParam);
    int segNum = 0;
    const SegmentArray segments(cAudio::epdByVolHod(wave.data(), waveLen, fs, epdParam, &segNum));
    std::vector<int> samples;
    for (const SEGMENT* s = segments.get(); s != segments.get() + segNum; ++s)
        samples.insert(samples.end(), {s->begin * epdParam.frameSize + 1, (s->end + 1) * epdParam.frameSize});
    write("segments", samples);
}
