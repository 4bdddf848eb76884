#include "conformance/servicetrial.h"

#include "conformance/checklist.h"
#include "conformance/operations.h"

#include <dlfcn.h>

namespace Conformance {

namespace {

constexpr const CheckInfo &LoadInfo = ServiceChecks[0];
constexpr const CheckInfo &CompleteInfo = ServiceChecks[1];

/// Loads @p file for good, with its symbols for everybody; fails @p result when that cannot be done.
void *load(const std::string &file, Result &result)
{
    void *handle = dlopen(file.c_str(), RTLD_NOW | RTLD_GLOBAL);
    if (handle == nullptr) {
        result.verdict = Verdict::Failed;
        result.findings.push_back({"dlopen", {}, "the library is loaded", dlerror()});
    }
    return handle;
}

Result resultFor(const CheckInfo &info)
{
    Result result;
    result.group = info.group;
    result.name = info.name;
    return result;
}

} // namespace

void ServiceTrial::run(const Order &order, Witness &witness) const
{
    Result loading = resultFor(LoadInfo);
    witness.begin(loading);
    void *library = load(m_library, loading);
    witness.end(loading);
    if (library == nullptr)
        return;

    // Before anything is called: a member that is missing shows in the field else, at its first call.
    Result complete = resultFor(CompleteInfo);
    witness.begin(complete);
    for (const Operation &operation : Operations) {
        if (dlsym(library, operation.symbol) != nullptr)
            continue;
        complete.verdict = Verdict::Failed;
        complete.findings.push_back(
            {operation.name, {}, "the library defines it", std::string("no ") + operation.symbol});
    }
    void *module = complete.verdict == Verdict::Passed ? load(m_module, complete) : nullptr;
    const auto makeChecks = module == nullptr
                                ? nullptr
                                : reinterpret_cast<MakeServiceChecks>(dlsym(module, MakeServiceChecksName));
    witness.end(complete);
    if (makeChecks != nullptr)
        makeChecks(order, witness);
}

} // namespace Conformance
