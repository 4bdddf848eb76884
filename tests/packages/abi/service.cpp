// A dump has the types that functions lead to, and what a std::function takes is not among them.

#include "hmi/systemset.h"

extern "C" __attribute__((visibility("default"))) void
whatReportsCarry(HMI::SystemSet::SsidInfo *, HMI::SystemSet::DHCP_STATE, HMI::SystemSet::StateWifi)
{}
