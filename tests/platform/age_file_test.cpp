#include <zelstandard/platform/FileCrypt.h>
#include <zelsuite/zelsuite.h>

#include <gtest/gtest.h>

#include <support/Files.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using FileCrypt::Clr::KorvaneUtil;

namespace
{

const std::string passphrase = "kT$WqRmYdNc4";

// The forged files below all have the file key 00 01 .. 0f, the salt 10 11 .. 1f and a payload
// nonce of zeros, and were made apart from this library. Whatever else is wrong with them, each
// MAC and tag is right for what it covers: only the rule that a case names can refuse it.
const std::string version = "age-encryption.org/v1\n";
const std::string salt = "EBESExQVFhcYGRobHB0eHw";
const std::string wrappedKey = "2AcjIS1Sc+t2YjqTOeJQSU436NieJRhle5ygL4l6tUg";
const std::string stanza = "-> scrypt " + salt + " 1\n" + wrappedKey + "\n";
const std::string mac = "7vgaLSb3FD5YidcBdgbwgguJkM6sMFpHUI0aWyp4vbs";
const std::string goodHeader = version + stanza + "--- " + mac + "\n";

std::string fromHex(const std::string& hex)
{
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

const std::string payloadNonce(16, '\0');
const std::string goodPayload =
    payloadNonce + fromHex("f2b722d78563007dabf15d9c5fb1461f8b19261ff27b"); // "plain\n"

std::string encrypted(const std::string& text)
{
    std::istringstream plain(text);
    std::ostringstream enciphered;
    EXPECT_TRUE(zelsuite::encrypt(plain, enciphered, passphrase));
    return enciphered.str();
}

/// Bytes among which no two chunks are alike.
std::string textOfSize(std::size_t size)
{
    std::string text(size, '\0');
    std::minstd_rand random;
    for (char& character : text)
        character = static_cast<char>(random() >> 8 & 0xff);
    return text;
}

class AgeFile : public testing::Test
{
protected:
    std::string store(const std::string& content) const
    {
        return temporary_.write("file.age", content);
    }

    bool isEncrypted(const std::string& content) const
    {
        return KorvaneUtil::isEncrypted(store(content), passphrase);
    }

    /// "text: " and the plain text, or "refused" when the stream stayed as it was.
    std::string decrypted(const std::string& content, const std::string& key = passphrase) const
    {
        std::stringstream stream;
        stream << "text: ";
        const bool success = KorvaneUtil::decrypt(store(content), stream, key);
        EXPECT_TRUE(stream.good());
        if (success)
            return stream.str();
        return stream.str() == "text: " ? "refused" : "refused, but wrote " + stream.str();
    }

    const support::TemporaryDirectory temporary_;
    const std::filesystem::path directory_ = temporary_.path();
};

} // namespace

TEST_F(AgeFile, comesBackAsItWasAtEverySizeAroundTheChunks)
{
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 200000U}) {
        const std::string text = textOfSize(size);
        EXPECT_TRUE(decrypted(encrypted(text)) == "text: " + text) << size;
    }
}

TEST_F(AgeFile, encipheredByAnotherProgramIsRead)
{
    const auto path = std::filesystem::path(__FILE__).parent_path().parent_path() / "data" /
                      "enciphered_by_age.age";
    std::ostringstream plain;
    EXPECT_TRUE(KorvaneUtil::isEncrypted(path.string(), passphrase));
    EXPECT_TRUE(KorvaneUtil::decrypt(path.string(), plain, passphrase));
    EXPECT_EQ(plain.str(), "<SMOD><ACTIONTYPES/></SMOD>\n");
}

TEST_F(AgeFile, isNeverEncipheredAlikeTwice)
{
    // Salt, file key and nonce are new: no line but the first, and no block of the payload, recurs.
    const std::string one = encrypted("same text");
    const std::string two = encrypted("same text");
    ASSERT_EQ(one.size(), two.size());
    const std::size_t saltAt = version.size() + std::string("-> scrypt ").size();
    const std::size_t payloadAt = one.size() - 16 - 9 - 16;
    EXPECT_NE(one.substr(saltAt, 22), two.substr(saltAt, 22));
    EXPECT_NE(one.substr(payloadAt, 16), two.substr(payloadAt, 16));
    EXPECT_NE(one.substr(payloadAt + 16), two.substr(payloadAt + 16));
}

TEST_F(AgeFile, isRefusedWithAnotherKeyOrOneByteFlippedAnywhereOrCutOrContinued)
{
    const std::string file = encrypted("<SMOD/>");
    for (const std::string key : {"kT$WqRmYdNc5", "kT$WqRmYdNc", "kT$WqRmYdNc44", ""})
        EXPECT_EQ(decrypted(file, key), "refused") << key;
    for (std::size_t i = 0; i < file.size(); ++i) {
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_EQ(decrypted(damaged), "refused") << "at " << i;
        EXPECT_EQ(decrypted(file.substr(0, i)), "refused") << "cut to " << i;
    }
    EXPECT_EQ(decrypted(file + '\0'), "refused");
    EXPECT_EQ(decrypted(file + file), "refused");
}

TEST_F(AgeFile, putsNothingOutWhenOnlyALaterChunkIsWrong)
{
    const std::size_t chunk = 65536 + 16;
    const std::string file = encrypted(textOfSize(3 * 65536));
    const std::size_t payload = file.size() - 3 * chunk;

    std::string damaged = file;
    damaged.back() = static_cast<char>(damaged.back() ^ 1);
    EXPECT_EQ(decrypted(damaged), "refused");
    EXPECT_EQ(decrypted(file + '\0'), "refused");
    EXPECT_EQ(decrypted(file.substr(0, file.size() - chunk)), "refused") << "last chunk missing";
    EXPECT_EQ(decrypted(file.substr(0, file.size() - 1)), "refused");

    const std::string swapped = file.substr(0, payload) + file.substr(payload + chunk, chunk) +
                                file.substr(payload, chunk) + file.substr(payload + 2 * chunk);
    EXPECT_EQ(decrypted(swapped), "refused");
}

TEST_F(AgeFile, endsWithAChunkThatIsMarkedAsTheLastAndHoldsText)
{
    ASSERT_EQ(decrypted(goodHeader + goodPayload), "text: plain\n");

    const std::string unmarked = "e50e33d1b715ee3023fae18d53ef0bc18a46e84c0a8b";
    const std::string secondChunk = "f27091fc53aa536e53662f7ad5bd8cd93535f4255216";
    EXPECT_EQ(decrypted(goodHeader + payloadNonce + fromHex(unmarked)), "refused");
    EXPECT_EQ(decrypted(goodHeader + payloadNonce + fromHex(secondChunk)), "refused");

    // A chunk of 64 KiB whose enciphered bytes are all zero, then a last chunk.
    const std::string full = goodHeader + payloadNonce + std::string(65536, '\0') +
                             fromHex("b599a43d4e721ee8b5df430c54a4e59b");
    const std::string oneByte = '\0' + fromHex("1b77a9eac0532edeebf19f265fdcb35b");
    const std::string empty = fromHex("e7c0dccb6235ec5ada1a3c54b30d7290");
    EXPECT_EQ(decrypted(full + oneByte).size(), 6U + 65536 + 1);
    EXPECT_EQ(decrypted(full + empty), "refused");
    EXPECT_EQ(decrypted(full), "refused");
}

TEST_F(AgeFile, isRefusedWhenItsHeaderIsSpeltDifferently)
{
    struct Header {
        const char* fault;
        std::string text; // up to the dashes
        const char* mac;
    };
    const std::string start = "-> scrypt " + salt;
    const std::string body = wrappedKey + "\n";
    const std::string other =
        "-> X25519 " + std::string(43, 'A') + "\n" + std::string(43, 'A') + "\n";
    const std::string shortSalt = salt.substr(0, 20) + " 1\n";
    const std::string saltWithBits = salt.substr(0, 21) + "x 1\n";
    const std::string bodyWithBits = wrappedKey.substr(0, 42) + "h\n";
    const std::string wrapped = wrappedKey.substr(0, 40) + "\n" + wrappedKey.substr(40) + "\n";
    const std::string bodyOfFactor0 = "yYQ/cUGfyp4kVvodVzIhpbdku03ZeVKFuEULS5Rka/o\n";
    const std::string bodyOfFactor19 = "G2LCalPOuu1Mi6IO3nYObxpU+sowtz4h2/Kw8e6oJjk\n";
    const std::string bodyOfShortSalt = "zTNYaU1Nr5nNI6hnS50uuwr+GAVTyrU5dTT3qSuHDIQ\n";

    // clang-format off
    const std::vector<Header> headers = {
        {"version 2", "age-encryption.org/v2\n" + stanza, "vCLqVAkRSyk3KpqCO2UZuel801Ey3gh/4HUKvEEvWMs"},
        {"empty second line", version + "\n" + stanza, "gmQowGxuNP3xPLi77gzkoSkys3H6T/OJhQCwBId5+QM"},
        {"only a stanza of another type", version + other, "JNUn9xkSa7WUBPM8VR467K+W0MwkYtiL82jWWX+rqNg"},
        {"another stanza before", version + other + stanza, "PczTspSv2D+nVoRzoqwPmz0oCxxOuAx/LaIKqyTUQhw"},
        {"two scrypt stanzas", version + stanza + stanza, "gFkjZJ/IypAqKz1Tr3EkzRtbq2JZ8HWTbtpZd6vkytg"},
        {"no work factor", version + start + "\n" + body, "3m0Lvhl7uB9qFGe0Dq52sScZfAOj5VPzDJFao58Xuq8"},
        {"one argument more", version + start + " 1 1\n" + body, "hnX5xHZ0W3neIkm9iN0XXeqK3v8JB0SsfOjmS+e0xoo"},
        {"work factor 01", version + start + " 01\n" + body, "MnMkgpTctSpSKaSmoMO+S9jU/6QHTKBmzft9M2L68iI"},
        {"work factor 0", version + start + " 0\n" + bodyOfFactor0, "ZIuB2j3x5XueQ17nthROHPP4kwFZJsgNaa2nIlWCtow"},
        {"work factor 19", version + start + " 19\n" + bodyOfFactor19, "mpFYE0wapHjIurmA4jwTukhAfd42SEBg3a6U/Z5TKMI"},
        {"padded salt", version + start + "== 1\n" + body, "1oRzNulGQ7fi7v+0eQ4dtrnyCSU+PCqDC+ADdZYv84k"},
        {"bits left over in the salt", version + "-> scrypt " + saltWithBits + body, "KkviixUE/WtzBHtHclVpLMr+W2K3/LYWTzhbZYPni4I"},
        {"salt of 15 bytes", version + "-> scrypt " + shortSalt + bodyOfShortSalt, "572QJCaCGAyAEtBGtngIVcW9KzlxnYOU+XV4jzFuMzY"},
        {"bits left over in the body", version + start + " 1\n" + bodyWithBits, "zeHvonOzjOhbzD2p6tjHOGkNWgmT0tM9eZks5BG8r04"},
        {"body wrapped early", version + start + " 1\n" + wrapped, "lUvgcZQ22mwxYmdpW60jnGSoh1GOPgr8o22a6+42+Mk"},
        {"CR after the body", version + start + " 1\n" + wrappedKey + "\r\n", "tt/05OBmwU3FJcwL0pBnV05Kt0/cLP3pJFZ7EfPDun8"},
    };
    // clang-format on
    for (const Header& header : headers)
        EXPECT_EQ(decrypted(header.text + "--- " + header.mac + "\n" + goodPayload), "refused")
            << header.fault;
}

TEST_F(AgeFile, isRefusedWhenItsMacIsMissingOrSpeltDifferently)
{
    for (const std::string& line : {"--- " + mac + "=", "--- " + mac.substr(0, 42) + "t",
                                    "---" + mac, "--- " + mac + "\r", std::string("---")})
        EXPECT_EQ(decrypted(version + stanza + line + "\n" + goodPayload), "refused") << line;
    EXPECT_EQ(decrypted(version + stanza + goodPayload), "refused");
}

TEST_F(AgeFile, isKnownByItsFirstLineAlone)
{
    EXPECT_TRUE(isEncrypted(version)); // and is still no file that can be deciphered
    EXPECT_EQ(decrypted(version + std::string(1000000, 'a')), "refused");
    for (const std::string content :
         {"", "age-encryption.org/v1", "age-encryption.org/v1\r\n", "age-encryption.org/v11\n",
          "\nage-encryption.org/v1\n", "-----BEGIN AGE ENCRYPTED FILE-----\n", "<SMOD/>\n"})
        EXPECT_FALSE(isEncrypted(content)) << content;
    for (const auto& path : {directory_, directory_ / "none.age", std::filesystem::path()}) {
        std::ostringstream plain;
        EXPECT_FALSE(KorvaneUtil::isEncrypted(path.string(), passphrase)) << path;
        EXPECT_FALSE(KorvaneUtil::decrypt(path.string(), plain, passphrase)) << path;
    }
}

TEST_F(AgeFile, reportsStreamsThatDoNotWork)
{
    const std::string path = store(encrypted("text"));
    std::ofstream closed;
    EXPECT_FALSE(KorvaneUtil::decrypt(path, closed, passphrase));

    std::istringstream plain("text");
    EXPECT_FALSE(zelsuite::encrypt(plain, closed, passphrase));
    EXPECT_EQ(plain.tellg(), std::streampos(0));

    std::ifstream missing(directory_ / "none.xml");
    std::ostringstream enciphered;
    EXPECT_FALSE(zelsuite::encrypt(missing, enciphered, passphrase));
    EXPECT_EQ(enciphered.str(), "");
}

TEST_F(AgeFile, holdsTheTextFromThePresentPlaceOfTheStream)
{
    std::istringstream plain("skipped\nkept\n");
    std::string line;
    std::getline(plain, line);
    std::ostringstream enciphered;
    ASSERT_TRUE(zelsuite::encrypt(plain, enciphered, passphrase));
    EXPECT_EQ(decrypted(enciphered.str()), "text: kept\n");
}
