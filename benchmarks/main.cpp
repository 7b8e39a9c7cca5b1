#include "families.h"
#include "pairs.h"
#include "surroundings.h"

#include <benchmark/benchmark.h>
#include <clocale>

int main(int argc, char** argv)
{
    using namespace kest::benchmarks;
    // As a program does that is ported with the library.
    std::setlocale(LC_ALL, "C.UTF-8");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return 2;
    }
    setPlatformServices(&hub());

    addForwards();
    addStrings();
    addNumbers();
    addFormats();
    addPaths();
    addConversions();
    addModules();
    addFiles();
    addDirectories();
    addProfiles();
    addEnvironment();
    addGeometry();
    addStringObjects();
    addRegistry();
    addHostFiles();
    addCompanions();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return anyCaseFailed() ? 1 : 0;
}
