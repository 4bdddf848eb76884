#include "conformance/options.h"

#include "conformance/adapternames.h"
#include "conformance/checklist.h"
#include "conformance/keyboard/keyboardchecklist.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace Conformance {

namespace {

constexpr int LongestSeconds = 3600;

template <class Checks> bool isGroupOf(const Checks &checks, const std::string &name)
{
    return std::any_of(checks.begin(), checks.end(),
                       [&name](const auto &check) { return name == check.group; });
}

/// The parts of a list with commas; of an empty text one that is empty.
std::vector<std::string> partsOf(const std::string &list)
{
    std::vector<std::string> parts(1);
    for (const char character : list) {
        if (character == ',')
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

/// The first of the groups that there is not, or nothing.
std::optional<std::string> unknownGroup(const Options &options)
{
    for (const std::string &name : options.groups) {
        if (!(options.isKeyboard ? isGroupOf(KeyboardChecks, name) : isGroupOf(ServiceChecks, name)))
            return name;
    }
    return std::nullopt;
}

bool readAdapters(const std::string &list, int *mask)
{
    *mask = 0;
    for (std::string name : partsOf(list)) {
        std::transform(name.begin(), name.end(), name.begin(), [](char character) {
            return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                        : character;
        });
        const auto adapter = std::find_if(AdapterNames.begin(), AdapterNames.end(),
                                          [&name](const AdapterName &known) { return name == known.name; });
        if (adapter == AdapterNames.end())
            return false;
        *mask |= adapter->nic;
    }
    return true;
}

bool readSeconds(const std::string &text, std::chrono::seconds *seconds)
{
    int number = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    *seconds = std::chrono::seconds(number);
    return error == std::errc() && stop == end && number >= 1 && number <= LongestSeconds;
}

/// Whether an option means nothing to a keyboard.
bool isAboutService(const std::string &name)
{
    constexpr std::array Names = {"--adapters", "--patience", "--read-only", "--settle"};
    return std::find(Names.begin(), Names.end(), name) != Names.end();
}

/// Takes the value of an option. Says what is wrong with it, if anything is.
std::string take(const std::string &name, const std::string &value, Options *options)
{
    const auto unless = [&value](bool isRight, const std::string &complaint) {
        return isRight ? std::string() : complaint + value;
    };
    if (name == "--group") {
        const std::vector<std::string> groups = partsOf(value);
        options->groups.insert(groups.begin(), groups.end());
        return {};
    }
    if (name == "--adapters")
        return unless(readAdapters(value, &options->adapters),
                      "takes lan0, lan1, wifi, 4g and vpn, with commas: ");
    if (name == "--patience" || name == "--limit" || name == "--settle") {
        std::chrono::seconds &seconds = name == "--limit"      ? options->limit
                                        : name == "--patience" ? options->patience
                                                               : options->settling;
        return unless(readSeconds(value, &seconds), "takes seconds, 1 to 3600: ");
    }
    if (name == "--tap" || name == "--junit") {
        (name == "--tap" ? options->tapFile : options->junitFile) = value;
        return unless(!value.empty(), "needs a file");
    }
    return "unknown option";
}

} // namespace

std::optional<Options> Options::read(const std::vector<std::string> &arguments, std::string *error)
{
    Options options;
    options.adapters = EveryAdapter;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const std::string &name = *argument;
        if (name == "--help" || name == "-h") {
            options.isHelpWanted = true;
        } else if (name == "--list") {
            options.isListWanted = true;
        } else if (name == "--read-only") {
            options.isReadOnly = true;
        } else if (name == "--keyboard") {
            options.isKeyboard = true;
        } else if (name.compare(0, 1, "-") == 0) {
            const bool hasValue = argument + 1 != arguments.end();
            const std::string complaint = take(name, hasValue ? *++argument : std::string(), &options);
            if (!complaint.empty()) {
                *error = name;
                error->append(": ").append(complaint);
                return std::nullopt;
            }
        } else if (options.library.empty() && !name.empty()) {
            options.library = name;
        } else {
            *error = name + ": one library is judged at a time";
            return std::nullopt;
        }
    }
    if (const std::optional<std::string> unknown = unknownGroup(options)) {
        *error = "--group: not a group, --list shows them: " + *unknown;
        return std::nullopt;
    }
    const auto ofService = std::find_if(arguments.begin(), arguments.end(), isAboutService);
    if (options.isKeyboard && ofService != arguments.end()) {
        *error = *ofService + ": is about the service, and goes without --keyboard";
        return std::nullopt;
    }
    if (options.library.empty() && !options.isListWanted && !options.isHelpWanted) {
        *error = "which library?";
        return std::nullopt;
    }
    return options;
}

std::string Options::help()
{
    return R"(Usage: panelsettings-conformance [OPTIONS] LIBRARY
       panelsettings-conformance --keyboard [OPTIONS] LIBRARY
       panelsettings-conformance [--keyboard] --list

Puts a service library of a panel (libhmisystemset.so, by its path) through the
contract of the settings screen, in a process of its own.

  --keyboard           the library is an on-screen keyboard (libqvkbpluginloader.so);
                       needs no display, and nothing of the panel is changed
  --list               show the groups and checks, and judge nothing
  --group NAME[,...]   only these groups; members, life and panel are always made,
                       of a keyboard library and life
  --adapters NAME[,...]
                       only these adapters of the panel: lan0, lan1, wifi, 4g, vpn
  --read-only          only what changes nothing
  --patience SECONDS   wait no longer for a report (60)
  --limit SECONDS      a library that keeps a check from going on for so long hangs (30)
  --settle SECONDS     give the service so long, at most, to read its panel (0)
  --tap FILE           write the results as TAP, too
  --junit FILE         write the results as JUnit XML, too
  --help               show this

Of a service it changes settings of the panel and puts them back; resetting Wi-Fi forgets the
stored passwords, and adapters are switched off and on. It never restarts the panel.

Ends with 0 when the contract is kept, 1 when a check failed, 2 when the command
line is wrong, 3 when the program could not do its work.
)";
}

} // namespace Conformance
