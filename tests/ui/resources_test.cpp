#include "harness/hand_laid_host.h"
#include "kest/user_interface/resources.h"

#include <cerrno>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

// The second symbols, as code knows them that was built against the other spelling.
HINSTANCE plainGetResourceHandle() __asm__("AfxGetResourceHandle");
void plainSetResourceHandle(HINSTANCE handle) __asm__("AfxSetResourceHandle");

namespace
{

using namespace kest::test;

constexpr int untouchedError = 77;

TEST(Resources, BitmapsAreLoadedAsImages)
{
    const HandLaidHost host;
    const auto module = fromWord<HINSTANCE>(0x1111222233334444);
    const auto name = fromWord<const wchar_t*>(0x5555666677778888);
    errno = untouchedError;
    EXPECT_EQ(toWord(LoadBitmapW(module, name)), HandLaidHost::answer);
    EXPECT_EQ(errno, untouchedError);
    EXPECT_EQ(host.calls(),
              (std::vector<ServiceCall>{{Service::graphics, 4, {toWord(module), toWord(name), 0, 0, 0, 0}}}));
    EXPECT_EQ(host.getterCalls(Service::graphics), 1);
    EXPECT_EQ(host.getterCalls(), 1);
}

TEST(Resources, SizeStandsInTheSecondWordOfTheRecord)
{
    std::uint32_t record[3] = {7, 512, 9};
    const HandLaidHost host;
    errno = untouchedError;
    EXPECT_EQ(SizeofResource(fromWord<HMODULE>(1), reinterpret_cast<HRSRC>(record)), 512u);
    EXPECT_EQ(SizeofResource(nullptr, reinterpret_cast<HRSRC>(record)), 512u);
    record[1] = 0xFFFFFFFF;
    EXPECT_EQ(SizeofResource(nullptr, reinterpret_cast<HRSRC>(record)), 0xFFFFFFFF);
    EXPECT_EQ(SizeofResource(fromWord<HMODULE>(1), nullptr), 0u);
    EXPECT_EQ(errno, untouchedError);
    EXPECT_EQ(host.getterCalls(), 0);
}

// Puts the handle back that was there.
class ResourceHandle : public testing::Test
{
protected:
    ~ResourceHandle() override { m_hCurrentResourceHandle = before_; }

    const HINSTANCE first = fromWord<HINSTANCE>(0x1111222233334444);
    const HINSTANCE second = fromWord<HINSTANCE>(0x5555666677778888);

private:
    HINSTANCE before_ = m_hCurrentResourceHandle;
};

TEST_F(ResourceHandle, IsWhatWasSetLast)
{
    errno = untouchedError;
    AfxSetResourceHandle(first);
    EXPECT_EQ(AfxGetResourceHandle(), first);
    EXPECT_EQ(m_hCurrentResourceHandle, first);
    AfxSetResourceHandle(second);
    EXPECT_EQ(AfxGetResourceHandle(), second);
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
    EXPECT_EQ(errno, untouchedError);
}

TEST_F(ResourceHandle, IsReadFromTheVariable)
{
    m_hCurrentResourceHandle = second;
    EXPECT_EQ(AfxGetResourceHandle(), second);
}

TEST_F(ResourceHandle, IsReachedUnderThePlainNames)
{
    plainSetResourceHandle(first);
    EXPECT_EQ(plainGetResourceHandle(), first);
    EXPECT_EQ(AfxGetResourceHandle(), first);
}

TEST(AfxGetResourceHandle, IsNullUntilSet)
{
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
    EXPECT_EQ(m_hCurrentResourceHandle, nullptr);
}

} // namespace
