#include <zelstandard/material/Control.h>

#include <cstring>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/detail/DataFile.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
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

/// The record of DIN-1988, and the one of every other code.
struct Records {
    Record din1988{1.75, 1.2, 0.0, 0.0, 0.0, true};
    Record others{1.0, 1.0, 0.0, 0.0, 0.0, false};

    Record& of(Mode mode) { return mode == Mode::DIN_1988 ? din1988 : others; }

    void read(const ZelXmlTree& tree)
    {
        const ZelXmlData* block = ZelXmlData::findTree(tree.getRoot(), Label::StressBlock, true);
        for (const ZelXmlData* annex : ChildElements(block)) {
            Record& record = of(XMLUtil::get()->getModeToString(nameOf(annex)));
            const auto take = [&](const char* name, double& value) {
                const double given = ZelXmlDataUtil::getChildDouble(annex, name);
                if (given > tolerance)
                    value = given;
            };
            take(Label::Lambda, record.compressionLambda);
            take(Label::Eta, record.compressionEta);
            take(Label::StrutFactor, record.strutFactor);
        }
    }

    void read(const std::string& fileName)
    {
        const auto stream = openInputFile(fileName);
        if (!stream->good())
            return;
        ZelXmlTree tree;
        tree.buildOfStream(*stream);
        read(tree);
    }
};

Records& records()
{
    static Records table;
    static bool isFilled = false;
    if (isFilled)
        return table;
    // Making the context may call a callback that comes here first.
    const std::string path = ZelStandard::get()->getDataBaseDir();
    if (!isFilled) {
        Records made; // aside, so that a failure here is no start
        made.read(path);
        table = made;
        isFilled = true;
    }
    return table;
}

Record& recordOf(Mode mode) { return records().of(mode); }

} // namespace

// clang-format off

double Control::getGamma            (Mode mode) { return recordOf(mode).gamma; }
double Control::getGammaFactor      (Mode mode) { return recordOf(mode).gammaFactor; }
double Control::getStrutFactor      (Mode mode) { return recordOf(mode).strutFactor; }
double Control::getCompressionEta   (Mode mode) { return recordOf(mode).compressionEta; }
double Control::getCompressionLambda(Mode mode) { return recordOf(mode).compressionLambda; }
bool   Control::getInternalFactor   (Mode mode) { return recordOf(mode).internalFactor; }

void Control::setGamma            (Mode mode, double value) { recordOf(mode).gamma             = value; }
void Control::setGammaFactor      (Mode mode, double value) { recordOf(mode).gammaFactor       = value; }
void Control::setStrutFactor      (Mode mode, double value) { recordOf(mode).strutFactor       = value; }
void Control::setCompressionEta   (Mode mode, double value) { recordOf(mode).compressionEta    = value; }
void Control::setCompressionLambda(Mode mode, double value) { recordOf(mode).compressionLambda = value; }
void Control::setInternalFactor   (Mode mode, bool   value) { recordOf(mode).internalFactor    = value; }

// clang-format on

void Control::input(const std::string& fileName)
{
    Records read = records(); // aside, so that nothing changes when memory ends
    read.read(fileName);
    records() = read;
}

void Control::input(const ZelXmlTree& tree)
{
    Records read = records();
    read.read(tree);
    records() = read;
}

void Control::output(ZelXmlTree& tree)
{
    WrittenChildren annexes(giveElement(tree, {rootElement, Label::StressBlock}), Label::Annex);
    for (const Mode mode : {Mode::EC, Mode::DIN_1988}) {
        ZelXmlData* annex = annexes.give(XMLUtil::get()->getStringToMode(mode));
        const Record& record = recordOf(mode);
        setChild(annex, Label::StrutFactor, record.strutFactor);
        setChild(annex, Label::Eta, record.compressionEta);
        setChild(annex, Label::Lambda, record.compressionLambda);
    }
    // The annex of any other code, and of none, would be read into the shared record.
    annexes.removeRivals([](const ZelXmlData* child) {
        return std::strcmp(ZelXmlData::getName(child), Label::Annex) == 0 ||
               ZelXmlData::findChild(child, Label::StrutFactor) ||
               ZelXmlData::findChild(child, Label::Eta) ||
               ZelXmlData::findChild(child, Label::Lambda);
    });
}

void Control::output(const std::string& fileName)
{
    ZelXmlTree tree;
    output(tree);
    saveTree(tree, fileName);
}

} // namespace Standard
