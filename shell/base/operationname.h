#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace QSP {

/// The bare name of a member function as an array of characters, read from what the compiler calls it.
template <auto Member> constexpr auto spelledName()
{
    constexpr std::string_view signature = __PRETTY_FUNCTION__;
    constexpr std::size_t begin = signature.rfind("::") + 2;
    constexpr std::size_t length = signature.find_first_of("];,)", begin) - begin;
    // Copied, so that the long signature does not become part of the library.
    std::array<char, length + 1> name{};
    for (std::size_t i = 0; i < length; ++i)
        name[i] = signature[begin + i];
    return name;
}

/// What the log calls an operation of the service, such as "getIp" for &HMI::SystemSet::getIp.
template <auto Member> inline constexpr auto g_operationName = spelledName<Member>();

} // namespace QSP
