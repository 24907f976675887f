// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/update_run.h"

namespace circuidex::online {

namespace {

constexpr std::size_t results = 0, program = 1, pictures = 2;

std::vector<std::size_t> archivesOf(UpdateRun run)
{
    switch (run) {
    case UpdateRun::results:
        return {results};
    case UpdateRun::program:
        return {program};
    case UpdateRun::newSeason:
        return {pictures, results};
    case UpdateRun::firstStart:
        return {results, pictures, program};
    case UpdateRun::full:
        return {results, program, pictures};
    }
    return {};
}

}

std::vector<RunStep> stepsOf(UpdateRun run)
{
    const bool full = run == UpdateRun::full;
    std::vector<RunStep> steps;
    if (full)
        steps.push_back({RunStep::hideTitleButtons});
    for (const std::size_t archive : archivesOf(run)) {
        steps.push_back({RunStep::deleteOld, archive});
        steps.push_back({RunStep::download, archive});
    }
    if (run != UpdateRun::firstStart)
        steps.push_back({RunStep::restoreDisplay});
    steps.push_back({RunStep::closeScreen});
    steps.push_back({RunStep::startExtractor});
    if (full)
        steps.push_back({RunStep::restoreDisplayOrFallback});
    steps.push_back({RunStep::endProgram});
    return steps;
}

}
