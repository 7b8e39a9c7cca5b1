// What the tables of signatures compare with. A name whose declaration differs, or which is not declared, does not
// compile; of overloads the one of that signature is taken.
#pragma once

namespace kest::test
{

template <class Signature, Signature* function>
inline constexpr bool hasSignature = true;

template <class Member, Member member>
inline constexpr bool hasMember = true;

} // namespace kest::test
