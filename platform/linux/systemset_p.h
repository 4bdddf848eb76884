#pragma once

#include "hmi/systemset.h"

#include "linux/service.h"

namespace HMI {

struct SystemSet::Private {
    Private();
    ~Private();
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    /// What @p value says of an adapter at this moment; T() for one that the panel does not have.
    template <class T, class Value> T read(NIC nic, const Value &value) const
    {
        const std::optional<std::size_t> place = service.place(nic);
        return place ? T(value(*service.snapshot(), *place)) : T();
    }

    static void endWithApplication();

    /// Whether nothing may be changed on this device; then it tells @p what would have been done.
    bool onlyTells(const QString &what) const;

    HmiLinux::Service service;
};

} // namespace HMI
