// payload.h - the samples of a picture as bytes to send, and back.
//
// They are scrambled, that is, combined with random bits that both sides know: flat parts of a
// picture would repeat one symbol, whose peaks may be high.
#ifndef OFDM_PAYLOAD_H
#define OFDM_PAYLOAD_H

#include "picture.h"

namespace ofdm
{

// The picture has 8 bits a sample. Its alpha channel is left out.
std::vector<std::uint8_t> payloadOf(const examples::Picture& picture);

// The picture with its colours replaced by received ones.
examples::Picture pictureFrom(std::vector<std::uint8_t> payload, const examples::Picture& sent);

} // namespace ofdm

#endif
