// ExpandEnvironmentStringsW without a host, which expands nothing, and with the reference host's system service
// against its rule written out over a table of variables. Buffers are compared whole.
#include "fuzzing.h"
#include "harness/stub_services.h"
#include "kest/host/system_service.h"
#include "kest/kernel/environment.h"

#include <clocale>
#include <cwctype>
#include <utility>
#include <vector>

namespace
{

using kest::fuzz::require;

constexpr wchar_t sentinel = L'\x5A';

// The whole environment, and behind it what the host adds to it.
using Table = std::vector<std::pair<std::wstring, std::wstring>>;
const Table variables = {
    {L"A", L"1"},
    {L"a", L"small"},
    {L"Bb", L"two words"},
    {L"EMPTY", L""},
    {L"REF", L"%A%"},
    {L"EQUALS", L"x=y"},
    {L"\u00e4", L"\u6f22"},
    {L"USERNAME", L"user"},
    {L"COMPUTERNAME", L"computer"},
    {L"HOME", L"/home/user"},
};
const Table additions = {
    {L"USERPROFILE", L"/home/user"},
    {L"APPDATA", L"/home/user/.config"},
    {L"LOCALAPPDATA", L"/home/user/.local/share"},
    {L"TEMP", L"/tmp"},
    {L"TMP", L"/tmp"},
};

std::string narrowed(const std::wstring& text)
{
    std::string result(text.size() * 4 + 1, '\0');
    result.resize(std::wcstombs(result.data(), text.c_str(), result.size()));
    return result;
}

bool setUp()
{
    std::setlocale(LC_ALL, "C.UTF-8");
    clearenv();
    for (const auto& [name, value] : variables)
    {
        setenv(narrowed(name).c_str(), narrowed(value).c_str(), 1);
    }
    return true;
}

std::wstring upper(std::wstring text)
{
    for (wchar_t& character : text)
    {
        character = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(character)));
    }
    return text;
}

// Exactly spelled names first, then in any case.
const std::wstring* valueOf(const std::wstring& name)
{
    for (const auto& [known, value] : variables)
    {
        if (known == name)
        {
            return &value;
        }
    }
    for (const Table* table : {&variables, &additions})
    {
        for (const auto& [known, value] : *table)
        {
            if (known.size() == name.size() && upper(known) == upper(name))
            {
                return &value;
            }
        }
    }
    return nullptr;
}

std::wstring expanded(std::wstring text)
{
    std::wstring result;
    while (!text.empty())
    {
        const std::size_t end = text[0] == L'%' ? text.find(L'%', 1) : std::wstring::npos;
        const std::wstring* const value = end == std::wstring::npos ? nullptr : valueOf(text.substr(1, end - 1));
        result += value != nullptr ? *value : text.substr(0, 1);
        text.erase(0, value != nullptr ? end + 1 : 1);
    }
    return result;
}

void check(const std::wstring& text, const std::wstring& expected, std::size_t size)
{
    std::wstring buffer(size, sentinel);
    std::wstring expectedBuffer = buffer;
    if (size > expected.size())
    {
        expectedBuffer.replace(0, expected.size() + 1, expected + L'\0');
    }
    require(ExpandEnvironmentStringsW(text.c_str(), buffer.data(), static_cast<DWORD>(size)) == expected.size(),
            "ExpandEnvironmentStringsW's result");
    require(buffer == expectedBuffer, "ExpandEnvironmentStringsW's text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    [[maybe_unused]] static const bool ready = setUp();

    FuzzedDataProvider data(bytes, size);
    const auto room = data.ConsumeIntegralInRange<std::size_t>(0, 64);
    std::wstring text;
    const std::wstring pieces[] = {L"%",     L"%%",       L"%A%",       L"%a%",      L"%bB%",       L"%EMPTY%",
                                   L"%ref%", L"%EQUALS%", L"EQUALS=x%", L"%\u00c4%", L"%UserName%", L"%appdata%",
                                   L"%TMP%", L"=",        L" ",         L"nothing"};
    while (data.remaining_bytes() > 0 && text.size() < 200)
    {
        text += data.ConsumeBool() ? data.PickValueInArray(pieces) : kest::fuzz::wideText(data, 6, L"%%%AaBbHOME= ");
    }
    kest::host::SystemService service;
    kest::test::StubHub hub;
    check(text, text, room);
    const kest::test::InstalledHub installed(&hub);
    check(text, text, room);
    hub.system = &service;
    check(text, expanded(text), room);
    return 0;
}
