#include "module/module_world.h"

#include <gtest/gtest.h>

using namespace kest::test;

namespace
{

std::string moduleFolder()
{
    return std::string("MODULE_FOLDER='") + KEST_TEST_MODULE_FOLDER + "'";
}

// Before main: the library's own start-up reports no string, and its tables are ready. After main: they are destroyed,
// and neither the module nor the hub is called, nor is the loader.
TEST(ModuleLifetime, BeginsBeforeMainAndEndsInSilence)
{
    EXPECT_EQ(outputOf("kest_module_test_lifetime", moduleFolder()), "nothing reported\n"
                                                                     "entries: 0\n"
                                                                     "directory: 0\n"
                                                                     "nothing reported\n"
                                                                     "module constructed\n"
                                                                     "DllMain 1\n"
                                                                     "strings reported\n"
                                                                     "loaded\n"
                                                                     "main\n"
                                                                     "still in the table\n"
                                                                     "module destroyed\n"
                                                                     "directory destroyed\n"
                                                                     "table destroyed\n");
}

TEST(ModuleLifetime, TableIsOneUnderBothItsNames)
{
    EXPECT_EQ(outputOf("kest_module_test_encoded_table_name", ""), "one table\n");
}

TEST(LoadLibraryW, CallsNoDllMainAtProcessExit)
{
    const std::string output = outputOf("kest_module_test_lifetime", moduleFolder());
    EXPECT_NE(output.find("DllMain 1\n"), std::string::npos);
    EXPECT_EQ(output.find("DllMain 0\n"), std::string::npos);
}

} // namespace
