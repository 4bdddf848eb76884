#include "conformance/checklist.h"
#include "conformance/interruption.h"
#include "conformance/judge.h"
#include "conformance/keyboard/keyboardchecklist.h"
#include "conformance/keyboard/keyboardtrial.h"
#include "conformance/options.h"
#include "conformance/servicetrial.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

using namespace Conformance;

namespace {

enum ExitCode { Kept = 0, Broken = 1, WrongUsage = 2, NotDone = 3 };

template <class Info> std::string columnOf(const Info &check)
{
    std::string title = std::string(check.group) + '.' + check.name;
    title.resize(24, ' ');
    return title;
}

void printServiceList(std::ostream &out)
{
    for (const CheckInfo &check : ServiceChecks)
        out << columnOf(check) << (check.effect == Effect::Changes ? "changes  " : "looks    ")
            << check.expectation << '\n';
}

void printKeyboardList(std::ostream &out)
{
    for (const KeyboardCheckInfo &check : KeyboardChecks)
        out << columnOf(check) << check.expectation << '\n';
}

/// A module with checks, which lies at the same place relative to the program everywhere.
std::string modulePath(const char *relative)
{
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    std::string path = (program.parent_path() / relative).lexically_normal().string();
    if (!std::filesystem::exists(path))
        throw std::runtime_error(path + ": missing; is the program installed completely?");
    return path;
}

/// A path for dlopen(), which takes a name without a slash for a library of the system.
std::string libraryPath(const std::string &name)
{
    return std::filesystem::absolute(name).string();
}

void write(const std::string &file, const Report &report, void (Report::*form)(std::ostream &) const)
{
    if (file.empty())
        return;
    std::ofstream out(file);
    (report.*form)(out);
    out.close();
    if (!out)
        throw std::runtime_error(file + ": cannot be written: " + std::strerror(errno));
}

Judge::Work serviceWork(const Options &options)
{
    const ServiceTrial trial(libraryPath(options.library), modulePath(PANEL_CONFORMANCE_CHECKS));
    return [&options, trial](const Past &past, Witness &witness) {
        Order order;
        order.groups = past.isInterrupted ? std::set<std::string>{"panel"} : options.groups;
        order.adapters = options.adapters;
        order.isReadOnly = options.isReadOnly;
        order.patience = options.patience;
        order.settling = options.settling;
        order.isDone = [&past](const std::string &title) { return past.report.has(title); };
        order.settings = past.settings;
        trial.run(order, witness);
    };
}

Judge::Work keyboardWork(const Options &options)
{
    const KeyboardTrial trial(modulePath(PANEL_CONFORMANCE_KEYBOARD));
    return [&options, trial](const Past &past, Witness &witness) {
        // A keyboard has nothing that would have to be put back.
        if (past.isInterrupted)
            return;
        KeyboardOrder order;
        order.library = libraryPath(options.library);
        order.groups = options.groups;
        order.isDone = [&past](const std::string &title) { return past.report.has(title); };
        trial.run(order, witness);
    };
}

int judge(const Options &options)
{
    const Judge::Work work = options.isKeyboard ? keyboardWork(options) : serviceWork(options);
    Judge judge(options.library, options.limit, std::cout);
    Interruption::watch();
    const Report &report = judge.judge(work);
    report.printSummary(std::cout);
    write(options.tapFile, report, &Report::writeTap);
    write(options.junitFile, report, &Report::writeJunit);
    if (judge.isInterrupted())
        throw std::runtime_error(options.isKeyboard ? "interrupted"
                                                    : "interrupted, after the panel was put back");
    return report.hasFailed() ? Broken : Kept;
}

} // namespace

int main(int argc, char **argv)
{
    std::string error;
    const std::optional<Options> options = Options::read({argv + 1, argv + argc}, &error);
    if (!options) {
        std::cerr << "panelsettings-conformance: " << error << "\n\n" << Options::help();
        return WrongUsage;
    }
    if (options->isHelpWanted) {
        std::cout << Options::help();
        return Kept;
    }
    if (options->isListWanted) {
        (options->isKeyboard ? printKeyboardList : printServiceList)(std::cout);
        return Kept;
    }
    try {
        return judge(*options);
    } catch (const std::exception &failure) {
        std::cerr << "panelsettings-conformance: " << failure.what() << '\n';
        return NotDone;
    }
}
