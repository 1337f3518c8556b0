#include <zelstandard/platform/FileCrypt.h>
#include <zelsuite/zelsuite.h>

#include <gtest/gtest.h>

#include <support/Files.h>

#include <fstream>
#include <random>
#include <sstream>
#include <string>

using FileCrypt::Clr::KorvaneUtil;

namespace
{

const std::string passphrase = "kT$WqRmYdNc4";
const std::string firstLine = "zelstandard-enciphered 1\n";

/// Bytes among which no two chunks are alike.
std::string textOfSize(std::size_t size)
{
    std::string text(size, '\0');
    std::minstd_rand random;
    for (char& character : text)
        character = static_cast<char>(random() >> 8 & 0xff);
    return text;
}

class EncipheredFile : public testing::Test
{
protected:
    bool isEncrypted(const std::string& content) const
    {
        return KorvaneUtil::isEncrypted(temporary_.write("file", content), passphrase);
    }

    /// "text: " and the plain text, or "refused" when the stream stayed as it was.
    std::string decrypted(const std::string& content, const std::string& key = passphrase) const
    {
        std::stringstream stream;
        stream << "text: ";
        const bool success = KorvaneUtil::decrypt(temporary_.write("file", content), stream, key);
        EXPECT_TRUE(stream.good());
        if (success)
            return stream.str();
        return stream.str() == "text: " ? "refused" : "refused, but wrote " + stream.str();
    }

    const support::TemporaryDirectory temporary_;
};

} // namespace

TEST_F(EncipheredFile, ComesBackAsItWasAtEverySizeAroundTheChunks)
{
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 200000U}) {
        const std::string text = textOfSize(size);
        EXPECT_TRUE(decrypted(support::enciphered(text)) == "text: " + text) << size;
    }
}

TEST_F(EncipheredFile, KeepsItsForm)
{
    // Made once, apart from this library, by libsodium's functions in Python.
    const std::string file = support::readFile(support::sourceFile("tests/data/enciphered.bin"));
    EXPECT_TRUE(isEncrypted(file));
    EXPECT_EQ(decrypted(file), "text: <SMOD><ACTIONTYPES/></SMOD>\n");
}

TEST_F(EncipheredFile, IsNeverEncipheredAlikeTwice)
{
    const std::string one = support::enciphered("same text");
    const std::string two = support::enciphered("same text");
    ASSERT_EQ(one.size(), firstLine.size() + 24 + 9 + 17);
    ASSERT_EQ(one.size(), two.size());
    for (std::size_t i = firstLine.size(); i < one.size(); i += 10)
        EXPECT_NE(one.substr(i, 10), two.substr(i, 10)) << i;
}

TEST_F(EncipheredFile, IsRefusedWithAnotherKeyOrOneByteFlippedAnywhereOrCutOrContinued)
{
    const std::string file = support::enciphered("<SMOD/>");
    for (const std::string key : {"kT$WqRmYdNc5", "kT$WqRmYdNc", "kT$WqRmYdNc44", ""})
        EXPECT_EQ(decrypted(file, key), "refused") << key;
    for (std::size_t i = 0; i < file.size(); ++i) {
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_EQ(decrypted(damaged), "refused") << "at " << i;
        EXPECT_EQ(decrypted(file.substr(0, i)), "refused") << "cut to " << i;
    }
    for (const std::string& more : {std::string(1, '\0'), file})
        EXPECT_EQ(decrypted(file + more), "refused");
}

TEST_F(EncipheredFile, PutsNothingOutWhenOnlyALaterChunkIsWrong)
{
    const std::size_t chunk = 65536 + 17;
    const std::string file = support::enciphered(textOfSize(3 * 65536));
    const std::size_t start = firstLine.size() + 24;
    ASSERT_EQ(file.size(), start + 3 * chunk) << "the chunks of all versions";

    std::string damaged = file;
    damaged.back() = static_cast<char>(damaged.back() ^ 1);
    EXPECT_EQ(decrypted(damaged), "refused");
    EXPECT_EQ(decrypted(file + '\0'), "refused");
    EXPECT_EQ(decrypted(file.substr(0, file.size() - chunk)), "refused") << "last chunk missing";
    EXPECT_EQ(decrypted(file.substr(0, file.size() - 1)), "refused");
    EXPECT_EQ(decrypted(file.substr(0, start) + file.substr(start + chunk, chunk) +
                        file.substr(start, chunk) + file.substr(start + 2 * chunk)),
              "refused")
        << "two chunks exchanged";
}

TEST_F(EncipheredFile, IsKnownByItsFirstLineAlone)
{
    EXPECT_TRUE(isEncrypted(firstLine)); // and is still no file that can be deciphered
    EXPECT_EQ(decrypted(firstLine + std::string(100000, 'a')), "refused");
    const std::string later =
        "zelstandard-enciphered 2\n" + support::enciphered("").substr(firstLine.size());
    EXPECT_TRUE(isEncrypted(later)) << "a version to come is no plain file";
    EXPECT_EQ(decrypted(later), "refused");
    for (const std::string content : {"", "zelstandard-enciphered", "\nzelstandard-enciphered 1\n",
                                      "Zelstandard-enciphered 1\n", "<SMOD/>\n"})
        EXPECT_FALSE(isEncrypted(content)) << content;
    for (const std::string& path :
         {temporary_.path().string(), temporary_.file("none"), std::string()}) {
        std::ostringstream plain;
        EXPECT_FALSE(KorvaneUtil::isEncrypted(path, passphrase)) << path;
        EXPECT_FALSE(KorvaneUtil::decrypt(path, plain, passphrase)) << path;
    }
}

TEST_F(EncipheredFile, ReportsStreamsThatDoNotWork)
{
    const std::string path = temporary_.write("file", support::enciphered("text"));
    std::ofstream closed;
    EXPECT_FALSE(KorvaneUtil::decrypt(path, closed, passphrase));

    std::istringstream plain("text");
    EXPECT_FALSE(zelsuite::encrypt(plain, closed, passphrase));
    EXPECT_EQ(plain.tellg(), std::streampos(0));

    std::ifstream missing(temporary_.file("none"));
    std::ostringstream enciphered;
    EXPECT_FALSE(zelsuite::encrypt(missing, enciphered, passphrase));
    EXPECT_EQ(enciphered.str(), "");
}

TEST_F(EncipheredFile, HoldsTheTextFromThePresentPlaceOfTheStream)
{
    std::istringstream plain("skipped\nkept\n");
    std::string line;
    std::getline(plain, line);
    std::ostringstream enciphered;
    ASSERT_TRUE(zelsuite::encrypt(plain, enciphered, passphrase));
    EXPECT_EQ(decrypted(enciphered.str()), "text: kept\n");
}
