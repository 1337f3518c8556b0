#include <zelstandard/instructions/StateInstructionManager.h>

#include <map>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Context.h"
#include "support/Golden.h"

using namespace Standard;

namespace
{

std::string numbered(int value, const std::string& word)
{
    return word == "-" ? std::to_string(value) : word;
}

} // namespace

TEST(TemplateSelection, FollowsCodeClassificationAndMaterial)
{
    const support::FreshContext context;
    const StateInstructionManager catalogue(nullptr);
    XMLUtil& words = *XMLUtil::get();
    std::ostringstream table;
    table << "Superposition templates by classification, code and material; numbers stand for "
             "values without a word\n";
    // Every member, and a value on either side that is none.
    for (int kind = 0; kind <= 3; ++kind)
        for (int mode = -1; mode <= 9; ++mode) {
            const Classification classification{kind};
            std::map<std::string, std::string> materials;
            for (int value = -1; value <= 6; ++value) {
                const DesignMaterial material{value};
                const auto chosen = catalogue.getTemplateID(Mode{mode}, classification, material);
                materials[words.getStringToSupTemplate(chosen)] +=
                    " " + numbered(value, words.getStringToDgnMaterial(material));

                context->setMode(Mode{mode});
                context->setClassification(classification);
                context->setDesignMaterial(material);
                EXPECT_EQ(catalogue.getCurrentTemplateID(), chosen);
            }
            table << numbered(kind, words.getStringToClassification(classification)) << " "
                  << numbered(mode, words.getStringToMode(Mode{mode})) << ":";
            if (materials.size() == 1)
                table << " " << materials.begin()->first;
            else
                for (const auto& [word, list] : materials)
                    table << "\n  " << word << ":" << list;
            table << "\n";
        }
    support::expectGolden("superposition_templates.txt", table.str());
}
