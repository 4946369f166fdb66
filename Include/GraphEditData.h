#pragma once

#include "HostSupport/YString.h"

#include <cstddef>
#include <cstdint>

// The list of vectors that can be plotted: the host fills it, the module that asked reads it. The
// layout is a contract.

/// What a vector's values are, as far as modules care.
enum GraphPhysicalType : std::int32_t {
  GraphVoltage = 2,
  GraphCurrent = 3,
  GraphDigital = 23,
};

/// One vector of the host's data.
struct GraphVector {
  YString name; ///< the parts of its path are separated by points
  std::int32_t physicalType;
  std::int32_t vectorKind;
  std::uint8_t reserved0[8];
  std::uint8_t isPlottable;
  std::uint8_t reserved1[7];
};

/// A kind of vector that is listed even where it is not plottable.
constexpr std::int32_t listedVectorKind = 3;

static_assert(offsetof(GraphVector, name) == 0);
static_assert(offsetof(GraphVector, physicalType) == 8);
static_assert(offsetof(GraphVector, vectorKind) == 12);
static_assert(offsetof(GraphVector, isPlottable) == 24);
static_assert(sizeof(GraphVector) == 32);

/// Zeroed and given its `specialChars` by the module, then filled by the host. `vectors` comes out
/// of `new GraphVector[]`; the module releases it with `delete[]`.
struct GraphEditData {
  GraphVector* vectors;
  std::int32_t vectorCount;
  std::int32_t reserved0;
  std::int32_t graphCount; ///< open graphs
  std::int32_t reserved1;
  // Facts of one curve: a module's own, no host fills them.
  std::int64_t numPoints;
  std::uint8_t isEvenlySpaced;
  std::uint8_t modeFlags[2];
  std::uint8_t reserved2[5];
  double xStart;
  double xEnd;
  std::int64_t numDivisions;
  const char* specialChars; ///< with one of these in it, a name is no word of an expression
};

static_assert(offsetof(GraphEditData, vectors) == 0);
static_assert(offsetof(GraphEditData, vectorCount) == 8);
static_assert(offsetof(GraphEditData, graphCount) == 16);
static_assert(offsetof(GraphEditData, numPoints) == 24);
static_assert(offsetof(GraphEditData, isEvenlySpaced) == 32);
static_assert(offsetof(GraphEditData, modeFlags) == 33);
static_assert(offsetof(GraphEditData, xStart) == 40);
static_assert(offsetof(GraphEditData, xEnd) == 48);
static_assert(offsetof(GraphEditData, numDivisions) == 56);
static_assert(offsetof(GraphEditData, specialChars) == 64);
static_assert(sizeof(GraphEditData) == 72);
