#include <fstream>
#include <map>

#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include "support/Files.h"

// texts/*.tsv: id, display text, report text.

TEST(Texts, AreThoseOfTheFilesInEachLanguage)
{
    for (const char* language : {"de", "en"}) { // leaves English in force
        ASSERT_TRUE(zelsuite::setLanguage(language));
        EXPECT_EQ(zelsuite::getLanguage(), language);
        std::map<unsigned int, std::pair<std::string, std::string>> texts;
        std::ifstream file(support::sourceFile("texts/" + std::string(language) + ".tsv"));
        for (std::string line; std::getline(file, line);) {
            const auto first = line.find('\t');
            const auto second = line.find('\t', first + 1);
            if (line.find_first_not_of("0123456789") == first)
                texts[static_cast<unsigned int>(std::stoul(line))] = {
                    line.substr(first + 1, second - first - 1), line.substr(second + 1)};
        }
        ASSERT_GT(texts.size(), 300U);
        for (unsigned int number = 0; number < 10000; ++number) {
            const auto& [wanted, wantedReport] = texts[number]; // empty for an unknown one
            EXPECT_EQ(ZelText::Load(number), wanted) << number;
            EXPECT_EQ(ZelText::LoadReport(number), wantedReport) << number;
            EXPECT_EQ(ZelTextResource::get()->loadString(number), wanted) << number;
            EXPECT_EQ(LSReport(number), wantedReport) << number;
        }
    }
    EXPECT_FALSE(zelsuite::setLanguage("fr"));
    EXPECT_EQ(zelsuite::getLanguage(), "en");
}
