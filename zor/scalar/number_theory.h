#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Divisors, primes, products of integers.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Greatest common divisor of the absolute values; gcd(n, 0) is |n|. Never negative, except that |-2147483648| is no
/// Integer and comes back as it is.
ZOR_API Integer GreatestCommonDivisor(Integer a, Integer b) noexcept;
/// The same of all cells; 0 for an empty array.
ZOR_API Integer GreatestCommonDivisor(const TIntArray& Numbers) noexcept;

/// Greatest common divisor of the absolute values of real numbers, by Euclid's algorithm; a remainder below
/// 10^-Decimals counts as 0. Decimals is limited to 0 to 12. The result carries the rounding of the remainders:
/// for 0.3, 0.1 and 6 decimals it is 0.09999999999999998. NaN if a number is not finite.
ZOR_API Double GreatestCommonDivisor(Double a, Double b, Integer Decimals) noexcept;
/// The same of all cells; 0.0 for an empty array.
ZOR_API Double GreatestCommonDivisor(const TDoubleArray& Numbers, Integer Decimals) noexcept;

/// Reduces the fraction a / b; signs stay where they are. Nothing happens if one of the two is 0.
ZOR_API void CancelFraction(Integer& a, Integer& b) noexcept;

/// True if no number from 2 to the root of |n| divides n: so also for 0, 1 and -1. A negative n is judged by |n|.
ZOR_API Boolean IsPrime(Integer n) noexcept;

/// The i-th prime, counted from 1: ListOfPrimes(1) = 2, ListOfPrimes(4792) = 46337, the largest one below the root of
/// 2^31. 0 for i outside 1 to 4792.
ZOR_API Integer ListOfPrimes(Integer i) noexcept;

/// The prime factors of n, ascending, each as often as it occurs: 12 gives 2, 2, 3. Empty for n below 2.
ZOR_API TIntArray FindPrimeFactors(Integer n);

/// n!, multiplied up from 2 in Double: exact up to 22!, infinity from 171 on. Raises EZORMath1Error for n < 0
/// ("Factorial: negative argument") and n > 1000 ("Factorial: argument too big").
ZOR_API Double Factorial(Integer n);

/// Product of all integers from a to b, given in either order. 0 if the smaller one is 0, -2 if it is negative; -1 if
/// the product so far is not below 2^63 - 1 divided by the larger one before any of the multiplications, which may
/// also refuse a product that would just fit: 1 to 20 gives 20!, 1 to 21 gives -1.
ZOR_API Int64 ProductConsecInts(Integer a, Integer b) noexcept;

/// True if at most one bit of n is set: so also for 0.
ZOR_API Boolean CheckPowerOfTwo(Cardinal n) noexcept;

}  // namespace ZOR_math1
