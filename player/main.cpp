// SPDX-License-Identifier: MIT
#include "doctor.h"
#include "options.h"
#include "places.h"
#include "player.h"

#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <utility>

namespace {

using namespace kez::player;
namespace fs = std::filesystem;

// The steps of the visit that is asked for; none without one. Empty after a complaint.
std::optional<std::vector<Step>> readVisit(const std::string& file)
{
    if (file.empty())
        return std::vector<Step> {};
    std::error_code error; // an empty path cannot be read
    const auto text = kez::files::readText(
        kez::desktop::textOf(fs::absolute(kez::desktop::pathOf(file), error)));
    if (!text) {
        std::cerr << file << ": the visit cannot be read\n";
        return std::nullopt;
    }
    const auto parsed = parseVisit(*text);
    if (const auto* fault = std::get_if<VisitFault>(&parsed)) {
        std::cerr << file << ':' << fault->line << ": " << fault->message << '\n';
        return std::nullopt;
    }
    return std::get<std::vector<Step>>(parsed);
}

ExitCode callDoctor(const Options& options, const Places& places)
{
    std::vector<Finding> findings = examineDevices(options, places);
    for (Finding& finding : examineFiles(options, places))
        findings.push_back(std::move(finding));
    std::cout << reportOn(findings);
    const bool allFine = std::ranges::all_of(findings, &Finding::isFine);
    return allFine ? ExitCode::Fine : ExitCode::Failed;
}

} // namespace

int main(int count, char** arguments)
{
    kez::desktop::useConsoleOfCaller();
    const Usage usage = readOptions(count, arguments, usualOptions(), std::cout, std::cerr);
    if (!usage.start)
        return static_cast<int>(usage.exitCode);
    const Options& options = usage.options;
    const Places places = placesFor(options);
    if (options.doctor)
        return static_cast<int>(callDoctor(options, places));
    const auto steps = readVisit(options.visit);
    if (!steps)
        return static_cast<int>(ExitCode::BadUsage);
    kez::desktop::showDebugOutput(options.verbose);
    if (options.headless && !options.visit.empty())
        kez::desktop::useScriptClock();
    return static_cast<int>(Player(options, places, *steps).play());
}
