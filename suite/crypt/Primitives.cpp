#include "Primitives.h"

#include <memory>
#include <type_traits>

#include <gcrypt.h>

namespace FileCrypt::Age
{

namespace
{

struct Closer {
    void operator()(gcry_mac_hd_t mac) const { gcry_mac_close(mac); }
    void operator()(gcry_cipher_hd_t cipher) const { gcry_cipher_close(cipher); }
};

using Mac = std::unique_ptr<std::remove_pointer_t<gcry_mac_hd_t>, Closer>;
using Cipher = std::unique_ptr<std::remove_pointer_t<gcry_cipher_hd_t>, Closer>;

/// Null when libgcrypt refuses.
Mac hmacSha256(std::span<const unsigned char> key)
{
    gcry_mac_hd_t handle = nullptr;
    if (gcry_mac_open(&handle, GCRY_MAC_HMAC_SHA256, 0, nullptr) != 0)
        return {};
    Mac mac(handle);
    if (gcry_mac_setkey(handle, key.data(), key.size()) != 0)
        return {};
    return mac;
}

bool finish(const Mac& mac, std::span<unsigned char, 32> digest)
{
    std::size_t size = digest.size();
    return gcry_mac_read(mac.get(), digest.data(), &size) == 0 && size == digest.size();
}

/// Ready for one message; null when libgcrypt refuses.
Cipher chaCha20Poly1305(const Key& key, const Nonce& nonce)
{
    gcry_cipher_hd_t handle = nullptr;
    if (gcry_cipher_open(&handle, GCRY_CIPHER_CHACHA20, GCRY_CIPHER_MODE_POLY1305, 0) != 0)
        return {};
    Cipher cipher(handle);
    if (gcry_cipher_setkey(handle, key.bytes.data(), key.bytes.size()) != 0 ||
        gcry_cipher_setiv(handle, nonce.data(), nonce.size()) != 0)
        return {};
    return cipher;
}

bool initialiseOnce()
{
    if (gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P) != 0)
        return true;
    if (gcry_check_version("1.8.0") == nullptr)
        return false;
    gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
    gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
    return true;
}

} // namespace

void wipe(std::span<unsigned char> bytes)
{
    // Volatile, since the compiler would drop stores to memory that is about to go.
    volatile unsigned char* const target = bytes.data();
    for (std::size_t i = 0; i < bytes.size(); ++i)
        target[i] = 0;
}

bool initialiseLibrary()
{
    static const bool ready = initialiseOnce();
    return ready;
}

void randomise(std::span<unsigned char> bytes)
{
    gcry_randomize(bytes.data(), bytes.size(), GCRY_STRONG_RANDOM);
}

bool authenticate(const Key& key, std::string_view text, Digest& mac)
{
    const Mac hmac = hmacSha256(key.bytes);
    return hmac && gcry_mac_write(hmac.get(), text.data(), text.size()) == 0 && finish(hmac, mac);
}

bool deriveKey(const FileKey& fileKey, std::span<const unsigned char> salt, std::string_view info,
               Key& derived)
{
    static constexpr Bytes<32> noSalt{};
    const Mac extract = hmacSha256(salt.empty() ? std::span<const unsigned char>(noSalt) : salt);
    Key pseudoRandom;
    if (!extract ||
        gcry_mac_write(extract.get(), fileKey.bytes.data(), fileKey.bytes.size()) != 0 ||
        !finish(extract, pseudoRandom.bytes))
        return false;

    // 32 bytes are the first block of the expansion alone: the info and the block's number.
    const Mac expand = hmacSha256(pseudoRandom.bytes);
    return expand && gcry_mac_write(expand.get(), info.data(), info.size()) == 0 &&
           gcry_mac_write(expand.get(), "\x01", 1) == 0 && finish(expand, derived.bytes);
}

bool stretchPassphrase(const std::string& passphrase, std::span<const unsigned char> salt,
                       unsigned workFactor, Key& derived)
{
    // libgcrypt takes N as the "subalgorithm" and p as the number of iterations.
    return gcry_kdf_derive(passphrase.data(), passphrase.size(), GCRY_KDF_SCRYPT, 1 << workFactor,
                           salt.data(), salt.size(), 1, derived.bytes.size(),
                           derived.bytes.data()) == 0;
}

bool seal(const Key& key, const Nonce& nonce, std::span<unsigned char> message)
{
    const Cipher cipher = chaCha20Poly1305(key, nonce);
    const auto text = message.first(message.size() - tagSize);
    const auto tag = message.last(tagSize);
    return cipher && gcry_cipher_encrypt(cipher.get(), text.data(), text.size(), nullptr, 0) == 0 &&
           gcry_cipher_gettag(cipher.get(), tag.data(), tag.size()) == 0;
}

bool open(const Key& key, const Nonce& nonce, std::span<unsigned char> message)
{
    const Cipher cipher = chaCha20Poly1305(key, nonce);
    const auto text = message.first(message.size() - tagSize);
    const auto tag = message.last(tagSize);
    return cipher && gcry_cipher_decrypt(cipher.get(), text.data(), text.size(), nullptr, 0) == 0 &&
           gcry_cipher_checktag(cipher.get(), tag.data(), tag.size()) == 0;
}

} // namespace FileCrypt::Age
