// The team's own host: the reference host with a keyboard of its own.
#include <kest/host/window_service.h>
#include <kest/reference_host.h>

namespace
{

class Keyboard final : public kest::host::ConsoleWindowService
{
public:
    SHORT GetKeyState(int key) override { return static_cast<SHORT>(key + 41); }
};

class TeamHost final : public KestReferenceHost
{
public:
    IWindowService* windowService() override { return &keyboard_; }

private:
    Keyboard keyboard_;
};

} // namespace

namespace team
{
namespace linux_side
{

IPlatformServices* makeHost();

IPlatformServices* makeHost()
{
    return new TeamHost;
}

} // namespace linux_side
} // namespace team

IPlatformServices* makeNoHost();

IPlatformServices* makeNoHost()
{
    return nullptr;
}
