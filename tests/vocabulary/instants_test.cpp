#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/SignificantInstant.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/Golden.h"

using namespace Standard;
using Constants::Instant;

namespace
{

const char* const names[][2] = {
    {Instant::NotDefined,                     Instant::NotDefinedOld                    },
    {Instant::Concreting,                     Instant::ConcretingOld                    },
    {Instant::SelfWeightFirstStageTensioning, Instant::SelfWeightFirstStageTensioningOld},
    {Instant::Transportation,                 Instant::TransportationOld                },
    {Instant::Assembling,                     Instant::AssemblingOld                    },
    {Instant::InSituConcreting,               Instant::InSituConcretingOld              },
    {Instant::InSituConcreteHardening,        Instant::InSituConcreteHardeningOld       },
    {Instant::InSituSecondStageTensioning,    Instant::InSituSecondStageTensioningOld   },
    {Instant::AdditionalLoading,              Instant::AdditionalLoadingOld             },
    {Instant::Infinity,                       Instant::InfinityOld                      },
    {Instant::AdditionalLoadingAccidental,    Instant::AdditionalLoadingAccidentalOld   },
    {Instant::InfinityAccidental,             Instant::InfinityAccidentalOld            },
    {Instant::AdditionalLoadingSeismic,       Instant::AdditionalLoadingSeismicOld      },
    {Instant::InfinitySeismic,                Instant::InfinitySeismicOld               },
};

} // namespace

// A line is a value, its current and its old name.
TEST(SignificantInstants, ReadBothNamesAndWriteTheCurrentOne)
{
    std::ostringstream table;
    for (const auto& [current, old] : names) {
        const SignificantInstant instant = ReadSignificantInstant(current);
        table << static_cast<int>(instant) << " " << current << " " << old << "\n";
        EXPECT_EQ(ReadSignificantInstant(old), instant) << old;
        EXPECT_EQ(WriteSignificantInstant(instant), current);
    }
    support::expectGolden("instants.txt", table.str());
}

TEST(SignificantInstants, FallBackToNotDefined)
{
    for (const char* name : {"Infinity", "", "infinity ", "infinit", "9"})
        EXPECT_EQ(ReadSignificantInstant(name), SignificantInstant::NotDefined) << name;
    for (const int value : {-1, 14})
        EXPECT_EQ(WriteSignificantInstant(static_cast<SignificantInstant>(value)), "notDefined");
}
