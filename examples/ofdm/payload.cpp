// payload.cpp - see payload.h.
#include "payload.h"

#include "random.h"

namespace ofdm
{
namespace
{

// Both ways.
void scramble(std::vector<std::uint8_t>& bytes)
{
    Random random(0, scramblerStream);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(byte ^ random.byte());
}

bool isColor(const examples::Picture& picture, std::size_t sample)
{
    return sample % static_cast<std::size_t>(picture.channels) <
           static_cast<std::size_t>(picture.colors());
}

} // namespace

std::vector<std::uint8_t> payloadOf(const examples::Picture& picture)
{
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < picture.samples.size(); ++i)
        if (isColor(picture, i))
            bytes.push_back(static_cast<std::uint8_t>(picture.samples[i]));
    scramble(bytes);
    return bytes;
}

examples::Picture pictureFrom(std::vector<std::uint8_t> payload, const examples::Picture& sent)
{
    scramble(payload);
    examples::Picture picture = sent;
    std::size_t next = 0;
    for (std::size_t i = 0; i < picture.samples.size(); ++i)
        if (isColor(picture, i))
            picture.samples[i] = payload[next++];
    return picture;
}

} // namespace ofdm
