#include "harness/stub_services.h"
#include "kest/platform_services.h"
#include "kest/user_interface/windows_and_input.h"

#include <cerrno>
#include <gtest/gtest.h>

// The second symbols, as code knows them that was built against the other spelling.
IPlatformServices* plainPlatformServices() __asm__("platformServices");
void plainSetPlatformServices(IPlatformServices* services) __asm__("setPlatformServices");

namespace
{

using kest::test::InstalledHub;
using kest::test::StubHub;
using kest::test::StubWindowService;

class KeyState : public StubWindowService
{
public:
    explicit KeyState(SHORT state) : state_(state) {}
    SHORT GetKeyState(int) override { return state_; }

private:
    SHORT state_;
};

TEST(Hub, IsNotInstalledAtStart)
{
    EXPECT_EQ(g_platformServices, nullptr);
    EXPECT_EQ(platformServices(), nullptr);
}

TEST(Hub, IsHandedOutOnceInstalled)
{
    const InstalledHub none(nullptr);
    StubHub hub;
    errno = 77;
    setPlatformServices(&hub);
    EXPECT_EQ(g_platformServices, &hub);
    EXPECT_EQ(platformServices(), &hub);
    EXPECT_EQ(platformServices(), &hub);
    EXPECT_EQ(errno, 77);
}

TEST(Hub, FirstInstallationWins)
{
    const InstalledHub none(nullptr);
    StubHub first;
    StubHub second;
    KeyState pressed(-1);
    KeyState released(0);
    first.window = &pressed;
    second.window = &released;
    setPlatformServices(&first);
    setPlatformServices(&second);
    EXPECT_EQ(platformServices(), &first);
    EXPECT_EQ(GetKeyState('A'), -1);
    setPlatformServices(nullptr);
    EXPECT_EQ(platformServices(), &first);
    EXPECT_EQ(GetKeyState('A'), -1);
}

TEST(Hub, NullInstallsNothing)
{
    const InstalledHub none(nullptr);
    setPlatformServices(nullptr);
    EXPECT_EQ(platformServices(), nullptr);
    StubHub hub;
    setPlatformServices(&hub);
    EXPECT_EQ(platformServices(), &hub);
}

TEST(Hub, IsReachedUnderItsPlainNames)
{
    const InstalledHub none(nullptr);
    StubHub hub;
    plainSetPlatformServices(&hub);
    EXPECT_EQ(plainPlatformServices(), &hub);
    EXPECT_EQ(platformServices(), &hub);
}

// Neither the hub nor a service is kept between calls.
TEST(Hub, IsFetchedByEveryForward)
{
    StubHub hub;
    KeyState pressed(-1);
    KeyState released(0);
    hub.window = &pressed;
    {
        const InstalledHub installed(&hub);
        EXPECT_EQ(GetKeyState('A'), -1);
        hub.window = &released;
        EXPECT_EQ(GetKeyState('A'), 0);
    }
    StubHub other;
    other.window = &pressed;
    const InstalledHub installed(&other);
    EXPECT_EQ(GetKeyState('A'), -1);
}

} // namespace
