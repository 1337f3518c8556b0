#pragma once

#include <zelsuite/zelsuite.h>

#include <zelstandard/context/ZelStandard.h>

namespace support
{

/// A design context that no settings file reaches, for one test: EC, a concrete building.
class FreshContext
{
public:
    FreshContext()
    {
        ZelStandard::kill();
        zelsuite::setInstallationDirectory("no-such-directory");
        ZelStandard::get()->setMode(Standard::Mode::EC);
    }
    ~FreshContext()
    {
        ZelStandard::kill();
        zelsuite::setInstallationDirectory("");
    }
    FreshContext(const FreshContext&) = delete;
    FreshContext& operator=(const FreshContext&) = delete;

    ZelStandard* operator->() const { return ZelStandard::get(); }
};

} // namespace support
