#include "Core/Pieces/PlaceTable.h"

#include <QHashFunctions>

UnitHash::UnitHash()
    : m_factor(0x9E3779B97F4A7C15U ^ (std::uint64_t(std::uint32_t(qGlobalQHashSeed())) << 1)) {}
