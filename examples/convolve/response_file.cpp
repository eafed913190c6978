// response_file.cpp - taps from audio or from text, which is told by its first bytes.
#include "response_file.h"

#include "audio.h"
#include "failure.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <fstream>

namespace convolve
{
namespace
{

constexpr std::int64_t mostTaps = std::int64_t{1} << 20;
constexpr double largestTap = 1e15; // as of audio

[[noreturn]] void refuse(const std::string& path, const std::string& reason)
{
    throw examples::Failure("'" + path + "': " + reason);
}

void expectFewEnough(const std::string& path, std::int64_t taps)
{
    if (taps > mostTaps)
        refuse(path, "more than " + std::to_string(mostTaps) + " taps");
}

// Audio files have zero bytes in their headers. What cannot be read is left to the audio library,
// whose errors are told as any others.
bool isText(const std::string& path)
{
    std::array<char, 64> bytes;
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), bytes.size());
    const auto isPlain = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return std::isprint(byte) || std::isspace(byte);
    };
    return file.gcount() > 0 && std::all_of(bytes.begin(), bytes.begin() + file.gcount(), isPlain);
}

std::vector<float> readText(const std::string& path)
{
    std::ifstream file(path);
    std::vector<float> taps;
    for (std::string line; std::getline(file, line);) {
        std::ranges::replace_if(
            line, [](unsigned char c) { return c == ',' || std::isspace(c); }, ' ');
        std::ranges::replace(line, '\0', '?'); // a message would end there
        for (std::size_t begin = 0;
             (begin = line.find_first_not_of(' ', begin)) != std::string::npos;) {
            const std::size_t end = std::min(line.find(' ', begin), line.size());
            const std::size_t digits = line[begin] == '+' ? begin + 1 : begin;
            double value = 0;
            const auto [stop, error] =
                std::from_chars(line.data() + digits, line.data() + end, value);
            if (error != std::errc() || stop != line.data() + end ||
                !(std::abs(value) <= largestTap))
                refuse(path, "'" + line.substr(begin, std::min<std::size_t>(end - begin, 40)) +
                                 "' is not a number to filter with");
            taps.push_back(static_cast<float>(value));
            expectFewEnough(path, static_cast<std::int64_t>(taps.size()));
            begin = end;
        }
    }
    if (taps.empty())
        refuse(path, "holds no numbers");
    return taps;
}

} // namespace

std::vector<float> readResponse(const std::string& path, int sampleRate)
{
    if (isText(path))
        return readText(path);
    examples::AudioFile file(path);
    if (file.channels() != 1)
        refuse(path, "two channels; a response has one");
    if (file.sampleRate() != sampleRate)
        refuse(path, "sampled at " + std::to_string(file.sampleRate()) + " Hz, the recording at " +
                         std::to_string(sampleRate) + " Hz");
    expectFewEnough(path, file.samples());
    std::vector<float> taps(static_cast<std::size_t>(file.samples()));
    file.read(taps);
    return taps;
}

} // namespace convolve
