#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// @file
/// The cryptographic building blocks of the age format. Primitives.cpp alone knows libgcrypt. Every
/// function that returns bool gives false when libgcrypt fails, lack of memory included.

namespace FileCrypt::Age
{

template <std::size_t Size> using Bytes = std::array<unsigned char, Size>;

void wipe(std::span<unsigned char> bytes);

/// Key bytes, overwritten when they are no longer needed.
template <std::size_t Size> class Secret
{
public:
    Secret() = default;
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    ~Secret() { wipe(bytes); }

    Bytes<Size> bytes{};
};

/// Drawn anew for each file; every other key of the file follows from it.
using FileKey = Secret<16>;
using Key = Secret<32>;
using Digest = Bytes<32>;
using Nonce = Bytes<12>;
constexpr std::size_t tagSize = 16;

/// To be called before anything below. Leaves a libgcrypt alone that the host has initialised;
/// otherwise initialises it without secure memory, so that it has nothing to warn of.
bool initialiseLibrary();

void randomise(std::span<unsigned char> bytes);

/// HMAC-SHA-256.
bool authenticate(const Key& key, std::string_view text, Digest& mac);

/// HKDF-SHA-256. An empty salt is that of 32 zero bytes.
bool deriveKey(const FileKey& fileKey, std::span<const unsigned char> salt, std::string_view info,
               Key& derived);

/// scrypt with r = 8 and p = 1.
/// @param workFactor binary logarithm of N; the memory needed is 2^workFactor KiB
bool stretchPassphrase(const std::string& passphrase, std::span<const unsigned char> salt,
                       unsigned workFactor, Key& derived);

/// ChaCha20-Poly1305. The last tagSize bytes of @p message are the tag, the bytes before it are
/// enciphered or deciphered in place. When open() gives false the message is of no use any more.
bool seal(const Key& key, const Nonce& nonce, std::span<unsigned char> message);
bool open(const Key& key, const Nonce& nonce, std::span<unsigned char> message);

} // namespace FileCrypt::Age
