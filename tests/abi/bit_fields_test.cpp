#include "kest/user_interface/text_shaping.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>

namespace
{

// The bits of a structure, the rest of the number zero.
template <class Structure>
std::uint64_t bitsOf(const Structure& structure)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &structure, sizeof structure);
    return bits;
}

// Where a field lies: its bits, all others being clear.
template <class Structure, class Set>
std::uint64_t bitsOfField(Set set)
{
    Structure structure;
    std::memset(&structure, 0, sizeof structure);
    set(structure);
    return bitsOf(structure);
}

TEST(BitFields, OfAControlLieAsOnWindows)
{
    using Control = SCRIPT_CONTROL;
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.uDefaultLanguage = 0xFFFF; }), 0xFFFFU);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fContextDigits = 1; }), 1U << 16);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fInvertPreBoundDir = 1; }), 1U << 17);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fInvertPostBoundDir = 1; }), 1U << 18);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fLinkStringBefore = 1; }), 1U << 19);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fLinkStringAfter = 1; }), 1U << 20);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fNeutralOverride = 1; }), 1U << 21);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fNumericOverride = 1; }), 1U << 22);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fLegacyBidiClass = 1; }), 1U << 23);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fMergeNeutralItems = 1; }), 1U << 24);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fUseStandardBidi = 1; }), 1U << 25);
    EXPECT_EQ(bitsOfField<Control>([](Control& c) { c.fReserved = 0x3F; }), 0x3FU << 26);
}

TEST(BitFields, OfAStateLieAsOnWindows)
{
    using State = SCRIPT_STATE;
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.uBidiLevel = 0x1F; }), 0x1FU);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fOverrideDirection = 1; }), 1U << 5);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fInhibitSymSwap = 1; }), 1U << 6);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fCharShape = 1; }), 1U << 7);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fDigitSubstitute = 1; }), 1U << 8);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fInhibitLigate = 1; }), 1U << 9);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fDisplayZWG = 1; }), 1U << 10);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fArabicNumContext = 1; }), 1U << 11);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fGcpClusters = 1; }), 1U << 12);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fReserved = 1; }), 1U << 13);
    EXPECT_EQ(bitsOfField<State>([](State& s) { s.fEngineReserved = 3; }), 3U << 14);
}

TEST(BitFields, OfAnAnalysisLieAsOnWindows)
{
    using Analysis = SCRIPT_ANALYSIS;
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.eScript = 0x3FF; }), 0x3FFU);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.fRTL = 1; }), 1U << 10);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.fLayoutRTL = 1; }), 1U << 11);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.fLinkBefore = 1; }), 1U << 12);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.fLinkAfter = 1; }), 1U << 13);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.fLogicalOrder = 1; }), 1U << 14);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.fNoGlyphIndex = 1; }), 1U << 15);
    EXPECT_EQ(bitsOfField<Analysis>([](Analysis& a) { a.s.uBidiLevel = 0x1F; }), 0x1FU << 16);
}

TEST(BitFields, OfALogicalAttributeLieAsOnWindows)
{
    using Attribute = SCRIPT_LOGATTR;
    EXPECT_EQ(bitsOfField<Attribute>([](Attribute& a) { a.fSoftBreak = 1; }), 1U << 0);
    EXPECT_EQ(bitsOfField<Attribute>([](Attribute& a) { a.fWhiteSpace = 1; }), 1U << 1);
    EXPECT_EQ(bitsOfField<Attribute>([](Attribute& a) { a.fCharStop = 1; }), 1U << 2);
    EXPECT_EQ(bitsOfField<Attribute>([](Attribute& a) { a.fWordStop = 1; }), 1U << 3);
    EXPECT_EQ(bitsOfField<Attribute>([](Attribute& a) { a.fInvalid = 1; }), 1U << 4);
    EXPECT_EQ(bitsOfField<Attribute>([](Attribute& a) { a.fReserved = 7; }), 7U << 5);
}

TEST(BitFields, OfScriptPropertiesLieAsOnWindows)
{
    using Properties = SCRIPT_PROPERTIES;
    constexpr std::uint64_t one = 1;
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.langid = 0xFFFF; }), 0xFFFFU);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fNumeric = 1; }), one << 16);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fComplex = 1; }), one << 17);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fNeedsWordBreaking = 1; }), one << 18);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fNeedsCaretInfo = 1; }), one << 19);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.bCharSet = 0xFF; }), one * 0xFF << 20);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fControl = 1; }), one << 28);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fPrivateUseArea = 1; }), one << 29);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fNeedsCharacterJustify = 1; }), one << 30);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fInvalidGlyph = 1; }), one << 31);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fInvalidLogAttr = 1; }), one << 32);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fCDM = 1; }), one << 33);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fAmbiguousCharSet = 1; }), one << 34);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fClusterSizeVaries = 1; }), one << 35);
    EXPECT_EQ(bitsOfField<Properties>([](Properties& p) { p.fRejectInvalid = 1; }), one << 36);
}

} // namespace
