// The families of cases, in the order of the page; each registers its pairs and its growth cases.
#pragma once

namespace kest::benchmarks
{

void addForwards();
void addStrings();
void addNumbers();
void addFormats();
void addPaths();
void addConversions();
void addModules();
void addFiles();
void addDirectories();
void addProfiles();
void addEnvironment();
void addGeometry();
void addStringObjects();
void addRegistry();
void addHostFiles();
void addCompanions();

} // namespace kest::benchmarks
