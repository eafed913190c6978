// link.h - bytes through transmitter, channel and receiver, and what became of them.
//
// Es/N0 is the mean power of a data subcarrier over that of the noise on it: prefix, pilots and
// training cost nothing. Eb/N0 is the same over the bits of a point. In multipath it is the mean
// over all channels.
#ifndef OFDM_LINK_H
#define OFDM_LINK_H

#include "modem.h"
#include "picture.h"

struct LinkSettings {
    Modulation modulation = Modulation::qpsk;
    int spread = 0;
    ChannelKind channel = ChannelKind::multipath;
    double noise = 0; // N0 over Es
    std::uint64_t seed = 0;
};

struct Tally {
    std::int64_t bits = 0, bitErrors = 0;
    std::int64_t points = 0;
    double errorPower = 0; // of all received points beside the sent ones
    std::int64_t symbols = 0;
    double seconds = 0; // transmitter and receiver took

    double errorRate() const;
    double errorVector() const; // rms, beside points of mean power 1
};

class Link
{
public:
    explicit Link(const LinkSettings& settings);

    // Sends bytes and fills in as many received ones; the last symbol is filled up with zeros.
    void send(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> received);

    const Tally& tally() const { return tally_; }
    double channelGain() const { return channel_.gain(); }
    double estimatedNoise() const { return receiver_.noise(); }

    // The first of the received points, a sample to be drawn.
    std::span<const Complex> points() const { return points_; }

private:
    void sendBatch(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> received);
    void judge(std::span<const std::uint8_t> labels, std::span<const Complex> points);

    Constellation constellation_;
    Subcarriers subcarriers_;
    Transmitter transmitter_;
    Channel channel_;
    Receiver receiver_;
    Tally tally_;
    std::vector<Complex> points_;
};

// The samples of a picture of 8 bits a sample as bytes to send, without alpha, and the picture with
// its colours replaced by received ones. They are scrambled, that is, combined with random bits
// that both sides know: flat parts of a picture would repeat one symbol, whose peaks may be high.
std::vector<std::uint8_t> payloadOf(const Picture& picture);
Picture pictureFrom(std::vector<std::uint8_t> payload, const Picture& sent);

#endif
