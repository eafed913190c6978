// link.cpp - see link.h.
#include "link.h"

#include "program.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace
{

constexpr std::size_t batchSymbols = 64; // so that the clock is read seldom; whole bytes
constexpr std::size_t mostPoints = std::size_t{1} << 17;

std::vector<std::uint8_t> labelsOf(std::span<const std::uint8_t> bytes, int bits)
{
    std::vector<std::uint8_t> labels;
    for (const std::uint8_t byte : bytes)
        for (int shift = 8 - bits; shift >= 0; shift -= bits)
            labels.push_back(static_cast<std::uint8_t>(byte >> shift & ((1 << bits) - 1)));
    return labels;
}

void joinLabels(std::span<const std::uint8_t> labels, int bits, std::span<std::uint8_t> bytes)
{
    std::size_t next = 0;
    for (std::uint8_t& byte : bytes) {
        int value = 0;
        for (int i = 0; i < 8; i += bits)
            value = value << bits | labels[next++];
        byte = static_cast<std::uint8_t>(value);
    }
}

// Both ways.
void scramble(std::vector<std::uint8_t>& bytes)
{
    Random random(0, scramblerStream);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(byte ^ random.byte());
}

} // namespace

double Tally::errorRate() const
{
    return bits == 0 ? 0 : static_cast<double>(bitErrors) / static_cast<double>(bits);
}

double Tally::errorVector() const
{
    return points == 0 ? 0 : std::sqrt(errorPower / static_cast<double>(points));
}

Link::Link(const LinkSettings& settings)
    : constellation_(settings.modulation), subcarriers_(subcarriersFor(settings.spread)),
      transmitter_(subcarriers_, constellation_),
      channel_(settings.channel, settings.noise, settings.seed), receiver_(subcarriers_)
{
    if (settings.channel == ChannelKind::white) {
        receiver_.assumeNoEchoes(settings.noise);
        return;
    }
    std::vector<Complex> training(trainingSymbols * blockLength);
    for (std::size_t i = 0; i < training.size(); i += blockLength)
        transmitter_.train(Block(&training[i], blockLength));
    channel_.pass(training);
    receiver_.learn(training);
}

void Link::send(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> received)
{
    const std::size_t step = batchSymbols * subcarriers_.data.size() * constellation_.bits() / 8;
    for (std::size_t i = 0; i < bytes.size(); i += step) {
        const std::size_t count = std::min(step, bytes.size() - i);
        sendBatch(bytes.subspan(i, count), received.subspan(i, count));
    }
}

void Link::sendBatch(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> received)
{
    const std::size_t perSymbol = subcarriers_.data.size();
    std::vector<std::uint8_t> labels = labelsOf(bytes, constellation_.bits());
    const std::size_t count = labels.size();
    const std::size_t symbols = (count + perSymbol - 1) / perSymbol;
    labels.resize(symbols * perSymbol);
    std::vector<Complex> samples(symbols * blockLength), points(labels.size());
    std::vector<std::uint8_t> decided(labels.size());
    const auto block = [&](std::size_t i) { return Block(&samples[i * blockLength], blockLength); };
    timed(tally_.seconds, [&] {
        for (std::size_t i = 0; i < symbols; ++i)
            toSamples(transmitter_.spectrum(std::span(labels).subspan(i * perSymbol, perSymbol)),
                      block(i));
    });
    channel_.pass(samples);
    timed(tally_.seconds, [&] {
        for (std::size_t i = 0; i < symbols; ++i)
            receiver_.demodulate(block(i), std::span(points).subspan(i * perSymbol, perSymbol));
        for (std::size_t i = 0; i < points.size(); ++i)
            decided[i] = constellation_.decide(points[i]);
    });
    joinLabels(decided, constellation_.bits(), received);
    tally_.symbols += static_cast<std::int64_t>(symbols);
    tally_.bits += static_cast<std::int64_t>(8 * bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i)
        tally_.bitErrors += std::popcount(static_cast<unsigned>(bytes[i] ^ received[i]));
    judge(std::span(labels).first(count), points);
}

void Link::judge(std::span<const std::uint8_t> labels, std::span<const Complex> points)
{
    for (std::size_t i = 0; i < labels.size(); ++i)
        tally_.errorPower += std::norm(points[i] - constellation_.point(labels[i]));
    tally_.points += static_cast<std::int64_t>(labels.size());
    const std::size_t room = mostPoints - points_.size();
    points_.insert(points_.end(), points.begin(), points.begin() + std::min(room, labels.size()));
}

std::vector<std::uint8_t> payloadOf(const Picture& picture)
{
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < picture.samples.size(); ++i)
        if (picture.isColor(i))
            bytes.push_back(static_cast<std::uint8_t>(picture.samples[i]));
    scramble(bytes);
    return bytes;
}

Picture pictureFrom(std::vector<std::uint8_t> payload, const Picture& sent)
{
    scramble(payload);
    Picture picture = sent;
    std::size_t next = 0;
    for (std::size_t i = 0; i < picture.samples.size(); ++i)
        if (picture.isColor(i))
            picture.samples[i] = payload[next++];
    return picture;
}
