#include <zelstandard/material/Coefficients.h>

#include <cmath>
#include <map>
#include <span>

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

constexpr double tolerance = 1e-7;

constexpr DesignSituation situations[] = {DesignSituation::PERSISTENT, DesignSituation::ACCIDENTAL,
                                          DesignSituation::ACCIDENTAL_EQ};
constexpr Classification classifications[] = {Classification::BUILDING, Classification::BRIDGE};

/// The keys that files hold, and their words.
std::span<const DesignSituation> keys(DesignSituation) { return situations; }

std::span<const Classification> keys(Classification) { return classifications; }

std::string wordOf(DesignSituation key) { return XMLUtil::get()->getStringToDgnSituation(key); }

std::string wordOf(Classification key) { return XMLUtil::get()->getStringToClassification(key); }

/// One coefficient for every code and key.
template <class Key> class Table
{
public:
    [[nodiscard]] double value(Mode mode, Key key) const
    {
        const auto ofMode = values_.find(mode);
        if (ofMode == values_.end())
            return 0.0;
        const auto found = ofMode->second.find(key);
        return found == ofMode->second.end() ? 0.0 : found->second;
    }

    void set(Mode mode, Key key, double value) { values_[mode][key] = value; }

    void read(const ZelXmlData* element, const std::vector<Mode>& supportedModes)
    {
        for (const ZelXmlData* annex : ChildElements(element)) {
            const Mode mode = XMLUtil::get()->getModeToString(nameOf(annex));
            for (const Key key : keys(Key())) {
                const double value = ZelXmlDataUtil::getChildDouble(annex, wordOf(key).c_str());
                if (std::fabs(value) > tolerance)
                    set(mode, key, value);
            }
            if (mode == Mode::EC)
                for (const Mode supported : supportedModes)
                    for (const Key key : keys(Key()))
                        set(supported, key, value(Mode::EC, key));
        }
    }

    void write(ZelXmlData* element, const std::vector<Mode>& supportedModes) const
    {
        std::vector<ZelXmlData*> written;
        for (const Mode mode : supportedModes) {
            ZelXmlData* annex =
                giveNamedChild(element, Label::Annex, XMLUtil::get()->getStringToMode(mode));
            for (const Key key : keys(Key()))
                writeValue(annex, mode, key);
            written.push_back(annex);
            if (mode == Mode::EC)
                ZelXmlData::moveToFront(element,
                                        annex); // read later, it would overwrite the others
        }
        removeRivals(element, written, [&](const std::string& name) {
            return XMLUtil::get()->getModeToString(name) != Mode::NO_CODE;
        });
    }

private:
    /// True when the element's text gives the value.
    static bool reads(const ZelXmlData* element, double value)
    {
        double given = 0.0;
        ZelXmlDataUtil::readValToChild(element, given);
        return std::fabs(given - value) <= tolerance;
    }

    void writeValue(ZelXmlData* annex, Mode mode, Key key) const
    {
        const std::string word = wordOf(key);
        const double difference = value(mode, key) - value(Mode::EC, key);
        if (mode == Mode::EC || std::fabs(difference) > tolerance)
            ZelXmlDataUtil::setChildData(annex, word.c_str(), value(mode, key), "%.2f");
        else
            removeChildren(annex, [&](const ZelXmlData* child) {
                return ZelXmlData::getName(child) == word && !reads(child, value(mode, key));
            });
    }

    std::map<Mode, std::map<Key, double>> values_;
};

using BySituation = Table<DesignSituation>;
using ByClassification = Table<Classification>;

} // namespace

struct Coefficients::Tables {
    BySituation gammaS;
    BySituation gammaC;
    BySituation gammaA;
    BySituation gammaT;
    BySituation gammaF;
    BySituation gammaR;
    BySituation gammaRV;
    BySituation gammaRH;
    BySituation gammaRE;
    ByClassification alphaCC;
    ByClassification alphaCT;
    std::vector<Mode> supportedModes{Mode::EC,     Mode::DIN_1988, Mode::DIN_2008, Mode::SIA,
                                     Mode::OENORM, Mode::CSN,      Mode::BS,       Mode::DIN_EN};

    /// Reading and writing keep orders of their own; both are wanted.
    template <class Visitor> void inReadingOrder(Visitor visit)
    {
        visit(Label::GammaS, gammaS);
        visit(Label::GammaC, gammaC);
        visit(Label::GammaA, gammaA);
        visit(Label::GammaT, gammaT);
        visit(Label::GammaF, gammaF);
        visit(Label::GammaR, gammaR);
        visit(Label::GammaRv, gammaRV);
        visit(Label::GammaRh, gammaRH);
        visit(Label::GammaRe, gammaRE);
        visit(Label::AlphaCc, alphaCC);
        visit(Label::AlphaCt, alphaCT);
    }

    template <class Visitor> void inWritingOrder(Visitor visit)
    {
        visit(Label::GammaS, gammaS);
        visit(Label::GammaA, gammaA);
        visit(Label::GammaT, gammaT);
        visit(Label::GammaC, gammaC);
        visit(Label::GammaF, gammaF);
        visit(Label::GammaR, gammaR);
        visit(Label::GammaRv, gammaRV);
        visit(Label::GammaRh, gammaRH);
        visit(Label::GammaRe, gammaRE);
        visit(Label::AlphaCc, alphaCC);
        visit(Label::AlphaCt, alphaCT);
    }
};

Coefficients* Coefficients::get()
{
    // The context is made first: its settings may call a host's callback that comes back here.
    static bool hasContext = false;
    if (!hasContext) {
        ZelStandard::get();
        hasContext = true;
    }
    static Coefficients instance;
    return &instance;
}

Coefficients::Coefficients() : tables_(std::make_unique<Tables>())
{
    input(ZelStandard::get()->getDataBaseDir());
}

Coefficients::~Coefficients() = default;

double Coefficients::getGammaS(Mode mode, DesignSituation situation) const
{
    return tables_->gammaS.value(mode, situation);
}

double Coefficients::getGammaC(Mode mode, DesignSituation situation) const
{
    return tables_->gammaC.value(mode, situation);
}

double Coefficients::getGammaA(Mode mode, DesignSituation situation) const
{
    return tables_->gammaA.value(mode, situation);
}

double Coefficients::getGammaT(Mode mode, DesignSituation situation) const
{
    return tables_->gammaT.value(mode, situation);
}

double Coefficients::getGammaF(Mode mode, DesignSituation situation) const
{
    return tables_->gammaF.value(mode, situation);
}

double Coefficients::getGammaR(Mode mode, DesignSituation situation) const
{
    return tables_->gammaR.value(mode, situation);
}

double Coefficients::getGammaRV(Mode mode, DesignSituation situation) const
{
    return tables_->gammaRV.value(mode, situation);
}

double Coefficients::getGammaRH(Mode mode, DesignSituation situation) const
{
    return tables_->gammaRH.value(mode, situation);
}

double Coefficients::getGammaRE(Mode mode, DesignSituation situation) const
{
    return tables_->gammaRE.value(mode, situation);
}

double Coefficients::getAlphaCC(Mode mode, Classification classification) const
{
    return tables_->alphaCC.value(mode, classification);
}

double Coefficients::getAlphaCT(Mode mode, Classification classification) const
{
    return tables_->alphaCT.value(mode, classification);
}

void Coefficients::setGammaS(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaS.set(mode, situation, value);
}

void Coefficients::setGammaC(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaC.set(mode, situation, value);
}

void Coefficients::setGammaA(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaA.set(mode, situation, value);
}

void Coefficients::setGammaT(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaT.set(mode, situation, value);
}

void Coefficients::setGammaF(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaF.set(mode, situation, value);
}

void Coefficients::setGammaR(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaR.set(mode, situation, value);
}

void Coefficients::setGammaRV(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaRV.set(mode, situation, value);
}

void Coefficients::setGammaRH(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaRH.set(mode, situation, value);
}

void Coefficients::setGammaRE(Mode mode, DesignSituation situation, double value)
{
    tables_->gammaRE.set(mode, situation, value);
}

void Coefficients::setAlphaCC(Mode mode, Classification classification, double value)
{
    tables_->alphaCC.set(mode, classification, value);
}

void Coefficients::setAlphaCT(Mode mode, Classification classification, double value)
{
    tables_->alphaCT.set(mode, classification, value);
}

const std::vector<Mode>& Coefficients::getSupportedModes() const { return tables_->supportedModes; }

void Coefficients::input(const std::string& fileName)
{
    const auto stream = openInputFile(fileName);
    if (!stream->good())
        return;
    ZelXmlTree tree;
    tree.buildOfStream(*stream);
    input(tree.getRoot());
}

void Coefficients::input(ZelXmlData* element)
{
    const ZelXmlData* coefficients = ZelXmlData::findTree(element, Label::Coefficients, true);
    tables_->inReadingOrder([&](const char* name, auto& table) {
        table.read(ZelXmlData::findTree(coefficients, name, true), tables_->supportedModes);
    });
}

void Coefficients::output(ZelXmlTree& tree)
{
    ZelXmlData* coefficients = giveElement(tree, {Label::Coefficients});
    tables_->inWritingOrder([&](const char* name, const auto& table) {
        table.write(giveTree(coefficients, name), tables_->supportedModes);
    });
}

void Coefficients::output(const std::string& fileName)
{
    zelofstream file(fileName.c_str(), std::ios::out);
    ZelXmlTree tree;
    output(tree);
    tree.putToStream(file.stream(), true);
}

} // namespace Standard
