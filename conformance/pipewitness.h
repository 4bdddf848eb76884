#pragma once

#include "conformance/message.h"
#include "conformance/witness.h"

namespace Conformance {

/// The first field of each line that passes the pipe.
namespace Word {
constexpr char Begin[] = "begin";
constexpr char End[] = "end";
constexpr char Alive[] = "alive";
constexpr char Settings[] = "settings";
} // namespace Word

/// Tells the process that watches this one, through a pipe.
class PipeWitness final : public Witness
{
public:
    explicit PipeWitness(int descriptor) : m_descriptor(descriptor) {}

    void begin(const Result &check) override { tell(Word::Begin, fieldsOf(check)); }
    void end(const Result &result) override { tell(Word::End, fieldsOf(result)); }
    void alive() override { tell(Word::Alive, {}); }
    void keep(const std::string &settings) override { tell(Word::Settings, {settings}); }

private:
    void tell(const char *word, const Fields &fields) const;

    int m_descriptor;
};

} // namespace Conformance
