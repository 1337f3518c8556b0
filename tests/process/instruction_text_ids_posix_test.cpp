// A host with texts of its own: the program takes the place of the suite's text library, and each
// text tells which loader was asked for which id.

#include <zelstandard/instructions/StateInstruction.h>

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Golden.h"

std::string ZelText::Load(unsigned int id) { return "display " + std::to_string(id); }

using namespace Standard;

TEST(InstructionTextIds, NameEachType)
{
    std::ostringstream table;
    for (int value = -2; value <= 45; ++value) {
        const StateInstruction instruction(InstructionType{value});
        table << value << " " << XMLUtil::get()->getStringToInstruction(instruction.getType())
              << ": " << instruction.getName() << "\n";
    }
    support::expectGolden("instruction_text_ids.txt", table.str());
}
