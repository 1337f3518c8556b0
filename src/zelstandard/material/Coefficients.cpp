#include <zelstandard/material/Coefficients.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <map>
#include <span>
#include <tuple>
#include <utility>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/detail/DataFile.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

using Constants::Label;

namespace
{

constexpr double tolerance = 1e-7;

/// The coefficients in the order of reading.
enum Coefficient : std::size_t {
    gammaS,
    gammaC,
    gammaA,
    gammaT,
    gammaF,
    gammaR,
    gammaRV,
    gammaRH,
    gammaRE,
    alphaCC,
    alphaCT,
    coefficientCount,
};

const std::array<const char*, coefficientCount> elements = {
    Label::GammaS,  Label::GammaC,  Label::GammaA,  Label::GammaT,  Label::GammaF,  Label::GammaR,
    Label::GammaRv, Label::GammaRh, Label::GammaRe, Label::AlphaCc, Label::AlphaCt,
};

/// Reading and writing keep orders of their own; both are wanted.
constexpr Coefficient writingOrder[] = {gammaS,  gammaA,  gammaT,  gammaC,  gammaF, gammaR,
                                        gammaRV, gammaRH, gammaRE, alphaCC, alphaCT};

/// The keys of a coefficient that files hold, and the elements that hold their values.
struct Key {
    int value;
    const char* element;
};

const std::array<Key, 3> situations = {
    {
     {0, Words<designSituationWords, 0>::text(DesignSituation::PERSISTENT)},
     {1, Words<designSituationWords, 0>::text(DesignSituation::ACCIDENTAL)},
     {2, Words<designSituationWords, 0>::text(DesignSituation::ACCIDENTAL_EQ)},
     }
};
const std::array<Key, 2> classifications = {
    {{1, Label::Building}, {2, Label::Bridge}}
};

std::span<const Key> keysOf(std::size_t coefficient)
{
    return coefficient >= alphaCC ? std::span<const Key>(classifications)
                                  : std::span<const Key>(situations);
}

} // namespace

struct Coefficients::Tables {
    /// The values of members; of other codes and keys those that were set.
    std::array<std::array<std::array<double, 3>, std::size(designCodes)>, coefficientCount>
        values{};
    std::map<std::tuple<std::size_t, int, int>, double> others;

    std::vector<Mode> supportedModes{Mode::EC,     Mode::DIN_1988, Mode::DIN_2008, Mode::SIA,
                                     Mode::OENORM, Mode::CSN,      Mode::BS,       Mode::DIN_EN};

    double* member(std::size_t coefficient, Mode mode, int key)
    {
        const auto code = static_cast<std::size_t>(mode);
        const auto index = static_cast<std::size_t>(key);
        return code < std::size(designCodes) && index < 3 ? &values[coefficient][code][index]
                                                          : nullptr;
    }

    double value(std::size_t coefficient, Mode mode, int key)
    {
        if (const double* found = member(coefficient, mode, key))
            return *found;
        const auto found = others.find({coefficient, static_cast<int>(mode), key});
        return found == others.end() ? 0.0 : found->second;
    }

    void set(std::size_t coefficient, Mode mode, int key, double value)
    {
        if (double* found = member(coefficient, mode, key))
            *found = value;
        else
            others[{coefficient, static_cast<int>(mode), key}] = value;
    }

    void read(std::size_t coefficient, const ZelXmlData* element)
    {
        for (const ZelXmlData* annex : ChildElements(element)) {
            const Mode mode = XMLUtil::get()->getModeToString(nameOf(annex));
            for (const Key& key : keysOf(coefficient)) {
                const double given = ZelXmlDataUtil::getChildDouble(annex, key.element);
                if (std::fabs(given) > tolerance)
                    set(coefficient, mode, key.value, given);
            }
            if (mode == Mode::EC)
                for (const Mode supported : supportedModes)
                    for (const Key& key : keysOf(coefficient))
                        set(coefficient, supported, key.value,
                            value(coefficient, Mode::EC, key.value));
        }
    }

    void write(std::size_t coefficient, ZelXmlData* element)
    {
        WrittenChildren annexes(element, Label::Annex);
        ZelXmlData* ec = nullptr;
        for (const Mode mode : supportedModes) {
            ZelXmlData* annex = annexes.give(XMLUtil::get()->getStringToMode(mode));
            if (mode == Mode::EC)
                ec = annex;
            for (const Key& key : keysOf(coefficient))
                write(annex, key.element, value(coefficient, mode, key.value),
                      mode == Mode::EC ||
                          std::fabs(value(coefficient, mode, key.value) -
                                    value(coefficient, Mode::EC, key.value)) > tolerance);
        }
        annexes.moveToFront(ec); // read later, it would overwrite the others
        annexes.removeRivals([](const std::string& name) {
            return XMLUtil::get()->getModeToString(name) != Mode::NO_CODE;
        });
    }

    /// A value that is not written must not be read either: what reads as another one is removed.
    static void write(ZelXmlData* annex, const char* element, double value, bool isWritten)
    {
        if (isWritten)
            return ZelXmlDataUtil::setChildData(annex, element, value, "%.2f");
        for (ZelXmlData* child : ChildElements(annex)) {
            double given = 0.0;
            ZelXmlDataUtil::readValToChild(child, given);
            if (std::strcmp(ZelXmlData::getName(child), element) == 0 &&
                !(std::fabs(given - value) <= tolerance))
                ZelXmlData::removeChild(annex, child);
        }
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
    static Coefficients* const instance = new Coefficients; // lives until the process ends
    return instance;
}

Coefficients::Coefficients() : tables_(std::make_unique<Tables>())
{
    input(ZelStandard::get()->getDataBaseDir());
}

Coefficients::~Coefficients() = default;

// clang-format off

double Coefficients::getGammaS (Mode mode, DesignSituation key) const { return tables_->value(gammaS,  mode, static_cast<int>(key)); }
double Coefficients::getGammaC (Mode mode, DesignSituation key) const { return tables_->value(gammaC,  mode, static_cast<int>(key)); }
double Coefficients::getGammaA (Mode mode, DesignSituation key) const { return tables_->value(gammaA,  mode, static_cast<int>(key)); }
double Coefficients::getGammaT (Mode mode, DesignSituation key) const { return tables_->value(gammaT,  mode, static_cast<int>(key)); }
double Coefficients::getGammaF (Mode mode, DesignSituation key) const { return tables_->value(gammaF,  mode, static_cast<int>(key)); }
double Coefficients::getGammaR (Mode mode, DesignSituation key) const { return tables_->value(gammaR,  mode, static_cast<int>(key)); }
double Coefficients::getGammaRV(Mode mode, DesignSituation key) const { return tables_->value(gammaRV, mode, static_cast<int>(key)); }
double Coefficients::getGammaRH(Mode mode, DesignSituation key) const { return tables_->value(gammaRH, mode, static_cast<int>(key)); }
double Coefficients::getGammaRE(Mode mode, DesignSituation key) const { return tables_->value(gammaRE, mode, static_cast<int>(key)); }
double Coefficients::getAlphaCC(Mode mode, Classification  key) const { return tables_->value(alphaCC, mode, static_cast<int>(key)); }
double Coefficients::getAlphaCT(Mode mode, Classification  key) const { return tables_->value(alphaCT, mode, static_cast<int>(key)); }

void Coefficients::setGammaS (Mode mode, DesignSituation key, double value) { tables_->set(gammaS,  mode, static_cast<int>(key), value); }
void Coefficients::setGammaC (Mode mode, DesignSituation key, double value) { tables_->set(gammaC,  mode, static_cast<int>(key), value); }
void Coefficients::setGammaA (Mode mode, DesignSituation key, double value) { tables_->set(gammaA,  mode, static_cast<int>(key), value); }
void Coefficients::setGammaT (Mode mode, DesignSituation key, double value) { tables_->set(gammaT,  mode, static_cast<int>(key), value); }
void Coefficients::setGammaF (Mode mode, DesignSituation key, double value) { tables_->set(gammaF,  mode, static_cast<int>(key), value); }
void Coefficients::setGammaR (Mode mode, DesignSituation key, double value) { tables_->set(gammaR,  mode, static_cast<int>(key), value); }
void Coefficients::setGammaRV(Mode mode, DesignSituation key, double value) { tables_->set(gammaRV, mode, static_cast<int>(key), value); }
void Coefficients::setGammaRH(Mode mode, DesignSituation key, double value) { tables_->set(gammaRH, mode, static_cast<int>(key), value); }
void Coefficients::setGammaRE(Mode mode, DesignSituation key, double value) { tables_->set(gammaRE, mode, static_cast<int>(key), value); }
void Coefficients::setAlphaCC(Mode mode, Classification  key, double value) { tables_->set(alphaCC, mode, static_cast<int>(key), value); }
void Coefficients::setAlphaCT(Mode mode, Classification  key, double value) { tables_->set(alphaCT, mode, static_cast<int>(key), value); }

// clang-format on

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
    const ZelXmlData* found = ZelXmlData::findTree(element, Label::Coefficients, true);
    if (!found)
        return;
    Tables read = *tables_; // aside, so that nothing changes when memory ends
    for (std::size_t i = 0; i < coefficientCount; ++i)
        read.read(i, ZelXmlData::findTree(found, elements[i], true));
    std::swap(tables_->values, read.values);
    tables_->others.swap(read.others);
}

void Coefficients::output(ZelXmlTree& tree)
{
    ZelXmlData* coefficients = giveElement(tree, {Label::Coefficients});
    std::array<const char*, coefficientCount> names;
    std::ranges::transform(writingOrder, names.begin(), [](Coefficient i) { return elements[i]; });
    writeTrees(coefficients, names, [&](std::size_t i, ZelXmlData* element) {
        tables_->write(writingOrder[i], element);
    });
}

void Coefficients::output(const std::string& fileName)
{
    ZelXmlTree tree;
    output(tree);
    saveTree(tree, fileName);
}

} // namespace Standard
