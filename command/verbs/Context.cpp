#include <algorithm>

#include <zelstandard/context/ZelStandard.h>
#include <zelsuite/zelsuite.h>

#include <command/names/Names.h>
#include <command/verbs/Verb.h>
#include <command/vocabulary/Failure.h>

namespace command
{

Session::Session(const Options& options) : data(options.data, options.hasOffice) {}

namespace
{

Structure structureInForce()
{
    const ZelStandard& standard = *ZelStandard::get();
    return standard.isBuildingClassification() ? building : bridge(standard.getBridgeType());
}

} // namespace

std::vector<Mode> Context::codes() const
{
    if (!options.codes.empty())
        return codesNamed(options.codes);
    if (!session.code)
        (void)data().settingsDocument(); // decides, and so has to be one
    return {session.code.value_or(ZelStandard::get()->getMode())};
}

std::vector<Structure> Context::structures() const
{
    if (!options.structures.empty())
        return structuresNamed(options.structures);
    if (!session.structure)
        (void)data().settingsDocument();
    return {session.structure.value_or(structureInForce())};
}

Mode Context::code() const
{
    const std::vector<Mode> all = codes();
    if (all.size() > 1)
        throw Failure("this question is about one code; name one with --code");
    return all.front();
}

Structure Context::structure() const
{
    const std::vector<Structure> all = structures();
    if (all.size() > 1)
        throw Failure("this question is about one structure; name one with --for");
    return all.front();
}

void Context::noteSettings(Answer& answer, bool asksCode, bool asksStructure) const
{
    const bool isCode = asksCode && options.codes.empty() && !session.code;
    const bool isStructure = asksStructure && options.structures.empty() && !session.structure;
    if (!isCode && !isStructure)
        return;
    std::string what = isCode ? "code " + wordOf(ZelStandard::get()->getMode()) : "";
    if (isStructure)
        what += (isCode ? " and structure " : "structure ") + wordOf(structureInForce());
    answer.note("By the settings file: " + what + "; others with " +
                (isCode ? isStructure ? "--code and --for." : "--code." : "--for."));
}

void Context::noteOffice(Answer& answer) const
{
    if (data().officeDocument())
        answer.note("With the office's values of Office.xml; programs see them only after "
                    "\"zelstandard file merge\".");
}

InForce::InForce(Mode code, Structure structure)
    : code_(ZelStandard::get()->getMode()),
      classification_(ZelStandard::get()->getClassification()),
      bridgeType_(ZelStandard::get()->getBridgeType())
{
    ZelStandard& standard = *ZelStandard::get();
    standard.setMode(code);
    standard.setClassification(structure.classification);
    if (!structure.isBuilding())
        standard.setBridgeType(structure.bridgeType);
}

InForce::~InForce()
{
    ZelStandard& standard = *ZelStandard::get();
    standard.setMode(code_);
    standard.setClassification(classification_);
    standard.setBridgeType(bridgeType_);
}

Place placeOf(const Element& element)
{
    const Position position = element.position();
    return {element.document->fileName(), position.line, position.column};
}

Cell cellOf(const Value& value, int decimals)
{
    Cell cell(value.number, decimals);
    if (const char mark = statusMark(value.origin.status))
        cell.marks = mark;
    cell.status = value.origin.status;
    return cell;
}

std::string lowerWordOf(Structure structure) { return folded(wordOf(structure)); }

std::string titleOf(ActionTypeId action, Structure structure)
{
    return wordOf(action) + "  " + nameOf(action) + ", " + nameOf(structure);
}

} // namespace command
