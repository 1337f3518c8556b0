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

/// Every member, and a value on either side that is none.
template <class Visitor> void forEachStructure(Visitor visit)
{
    for (int classification = 0; classification <= 3; ++classification)
        for (int mode = -1; mode <= 9; ++mode)
            for (int material = -1; material <= 6; ++material)
                visit(Mode{mode}, Classification{classification}, DesignMaterial{material});
}

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
    std::map<std::string, std::map<std::string, std::string>> materials;
    std::vector<std::string> structures;
    forEachStructure([&](Mode mode, Classification classification, DesignMaterial material) {
        const std::string structure = numbered(static_cast<int>(classification),
                                               words.getStringToClassification(classification)) +
                                      " " +
                                      numbered(static_cast<int>(mode), words.getStringToMode(mode));
        if (!materials.contains(structure))
            structures.push_back(structure);
        const auto chosen = catalogue.getTemplateID(mode, classification, material);
        materials[structure][words.getStringToSupTemplate(chosen)] +=
            " " + numbered(static_cast<int>(material), words.getStringToDgnMaterial(material));
    });

    std::ostringstream table;
    table << "Superposition templates by classification, code and material; numbers stand for "
             "values without a word\n";
    for (const std::string& structure : structures) {
        table << structure << ":";
        const auto& templates = materials[structure];
        if (templates.size() == 1)
            table << " " << templates.begin()->first;
        else
            for (const auto& [word, list] : templates)
                table << "\n  " << word << ":" << list;
        table << "\n";
    }
    support::expectGolden("superposition_templates.txt", table.str());
}

TEST(TemplateSelection, OfTheSettingsInForceIsTheSame)
{
    const support::FreshContext context;
    const StateInstructionManager catalogue(nullptr);
    forEachStructure([&](Mode mode, Classification classification, DesignMaterial material) {
        context->setMode(mode);
        context->setClassification(classification);
        context->setDesignMaterial(material);
        EXPECT_EQ(catalogue.getCurrentTemplateID(),
                  catalogue.getTemplateID(mode, classification, material))
            << static_cast<int>(mode) << " " << static_cast<int>(classification) << " "
            << static_cast<int>(material);
    });
}
