#include <zelstandard/vocabulary/SignificantInstant.h>

#include <algorithm>
#include <array>

#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/Constants.h>

namespace Standard
{

namespace
{

struct Entry {
    SignificantInstant value;
    unsigned int textId;
    std::string name;
    std::string oldName;
};

using Constants::Instant;

/// In the order of the values. The text ids jump after 7539, since the last four instants came
/// later; files written before the renaming hold the old names.
const std::array<Entry, 14>& entries()
{
    using enum SignificantInstant;
    static const auto& table = *new std::array<Entry, 14>{
        {
         {NotDefined, 7539, Instant::NotDefined, Instant::NotDefinedOld},
         {Concreting, 7530, Instant::Concreting, Instant::ConcretingOld},
         {SelfWeightFirstStageTensioning, 7531, Instant::SelfWeightFirstStageTensioning,
             Instant::SelfWeightFirstStageTensioningOld},
         {Transportation, 7532, Instant::Transportation, Instant::TransportationOld},
         {Assembling, 7533, Instant::Assembling, Instant::AssemblingOld},
         {InSituConcreting, 7534, Instant::InSituConcreting, Instant::InSituConcretingOld},
         {InSituConcreteHardening, 7535, Instant::InSituConcreteHardening,
             Instant::InSituConcreteHardeningOld},
         {InSituSecondStageTensioning, 7536, Instant::InSituSecondStageTensioning,
             Instant::InSituSecondStageTensioningOld},
         {AdditionalLoading, 7537, Instant::AdditionalLoading, Instant::AdditionalLoadingOld},
         {Infinity, 7538, Instant::Infinity, Instant::InfinityOld},
         {AdditionalLoadingAccidental, 7547, Instant::AdditionalLoadingAccidental,
             Instant::AdditionalLoadingAccidentalOld},
         {InfinityAccidental, 7548, Instant::InfinityAccidental, Instant::InfinityAccidentalOld},
         {AdditionalLoadingSeismic, 7549, Instant::AdditionalLoadingSeismic,
             Instant::AdditionalLoadingSeismicOld},
         {InfinitySeismic, 7550, Instant::InfinitySeismic, Instant::InfinitySeismicOld},
         }
    };
    return table;
}

/// The entry of an instant; the first one for a value that is no member.
const Entry& entryOf(SignificantInstant instant)
{
    const auto& table = entries();
    const auto found = std::ranges::find(table, instant, &Entry::value);
    return found == table.end() ? table.front() : *found;
}

} // namespace

std::string GetSignificantInstantName(SignificantInstant instant)
{
    return ZelTextResource::get()->loadString(entryOf(instant).textId);
}

SignificantInstant ReadSignificantInstant(const std::string& name)
{
    for (const Entry& entry : entries())
        if (name == entry.name || name == entry.oldName)
            return entry.value;
    return SignificantInstant::NotDefined;
}

const std::string& WriteSignificantInstant(SignificantInstant instant)
{
    return entryOf(instant).name;
}

} // namespace Standard
