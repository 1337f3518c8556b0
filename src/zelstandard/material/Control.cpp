#include <zelstandard/material/Control.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/DataFile.h>
#include <zelstandard/datafiles/XmlDocument.h>
#include <zelstandard/datafiles/zelofstream.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

namespace
{

struct Record {
    double gamma;
    double gammaFactor;
    double strutFactor;
    double compressionEta;
    double compressionLambda;
    bool internalFactor;
};

constexpr double tolerance = 1e-7;

/// Key 2 for DIN-1988, 1 for every other code.
int keyOf(Mode mode) { return mode == Mode::DIN_1988 ? 2 : 1; }

void readTree(const ZelXmlTree& tree, std::map<int, Record>& records)
{
    const ZelXmlData* block = ZelXmlData::findTree(tree.getRoot(), Label::StressBlock, true);
    for (const ZelXmlData* annex : ChildElements(block)) {
        Record& record = records[keyOf(XMLUtil::get()->getModeToString(nameOf(annex)))];
        const auto read = [&](const char* name, double& value) {
            const double given = ZelXmlDataUtil::getChildDouble(annex, name);
            if (given > tolerance)
                value = given;
        };
        read(Label::Lambda, record.compressionLambda);
        read(Label::Eta, record.compressionEta);
        read(Label::StrutFactor, record.strutFactor);
    }
}

void readFile(const std::string& fileName, std::map<int, Record>& records)
{
    const auto stream = openInputFile(fileName);
    if (!stream->good())
        return;
    ZelXmlTree tree;
    tree.buildOfStream(*stream);
    readTree(tree, records);
}

std::map<int, Record>& records()
{
    static std::map<int, Record> table;
    if (!table.empty())
        return table;
    // Making the context may call a callback that comes here first.
    const std::string path = ZelStandard::get()->getDataBaseDir();
    if (table.empty()) {
        table[2] = {1.75, 1.2, 0.0, 0.0, 0.0, true};
        table[1] = {1.0, 1.0, 0.0, 0.0, 0.0, false};
        readFile(path, table);
    }
    return table;
}

Record& recordOf(Mode mode) { return records()[keyOf(mode)]; }

} // namespace

double Control::getGamma(Mode mode) { return recordOf(mode).gamma; }

double Control::getGammaFactor(Mode mode) { return recordOf(mode).gammaFactor; }

double Control::getStrutFactor(Mode mode) { return recordOf(mode).strutFactor; }

double Control::getCompressionEta(Mode mode) { return recordOf(mode).compressionEta; }

double Control::getCompressionLambda(Mode mode) { return recordOf(mode).compressionLambda; }

bool Control::getInternalFactor(Mode mode) { return recordOf(mode).internalFactor; }

void Control::setGamma(Mode mode, double value) { recordOf(mode).gamma = value; }

void Control::setGammaFactor(Mode mode, double value) { recordOf(mode).gammaFactor = value; }

void Control::setStrutFactor(Mode mode, double value) { recordOf(mode).strutFactor = value; }

void Control::setCompressionEta(Mode mode, double value) { recordOf(mode).compressionEta = value; }

void Control::setCompressionLambda(Mode mode, double value)
{
    recordOf(mode).compressionLambda = value;
}

void Control::setInternalFactor(Mode mode, bool value) { recordOf(mode).internalFactor = value; }

void Control::input(const std::string& fileName) { readFile(fileName, records()); }

void Control::input(const ZelXmlTree& tree) { readTree(tree, records()); }

void Control::output(ZelXmlTree& tree)
{
    ZelXmlData* block = giveElement(tree, {rootElement, Label::StressBlock});
    std::vector<const ZelXmlData*> written;
    for (const Mode mode : {Mode::EC, Mode::DIN_1988}) {
        ZelXmlData* annex =
            giveNamedChild(block, Label::Annex, XMLUtil::get()->getStringToMode(mode));
        const Record& record = recordOf(mode);
        setChild(annex, Label::StrutFactor, record.strutFactor);
        setChild(annex, Label::Eta, record.compressionEta);
        setChild(annex, Label::Lambda, record.compressionLambda);
        written.push_back(annex);
    }
    // The annex of any other code, and of none, would be read into the shared record.
    removeChildren(block, [&](const ZelXmlData* child) {
        return std::ranges::find(written, child) == written.end() &&
               (std::strcmp(ZelXmlData::getName(child), Label::Annex) == 0 ||
                ZelXmlData::findChild(child, Label::StrutFactor) ||
                ZelXmlData::findChild(child, Label::Eta) ||
                ZelXmlData::findChild(child, Label::Lambda));
    });
}

void Control::output(const std::string& fileName)
{
    zelofstream file(fileName.c_str(), std::ios::out);
    ZelXmlTree tree;
    output(tree);
    tree.putToStream(file.stream(), true);
}

} // namespace Standard
