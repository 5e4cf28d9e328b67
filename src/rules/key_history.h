#pragma once

#include "rules/game_tree.h"
#include "rules/position_key.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>

namespace tavlon12 {

/// The placements of the game and of the line under search: entry i is the one after half-move i + 1. A search compares
/// with all of them at each node, and mostly in vain: short hashes that lie together tell so, eight at a time.
class KeyHistory {
public:
    const PositionKey& operator[](Long i) const { return Keys[i]; }

    void Set(Long i, const PositionKey& key) {
        assert(i >= 0 && i < kTreeSize);
        Keys[i] = key;
        Hashes[i] = ShortHash(key);
    }

    void Fill(const PositionKey& key) {
        Keys.fill(key);
        Hashes.fill(ShortHash(key));
    }

    /// Whether the key is among the first `count`.
    bool Has(const PositionKey& key, Long count) const {
        assert(count <= kTreeSize);
        const std::uint32_t hash = ShortHash(key);
        std::uint32_t alike = 0;
        const Long end = (count + kBlock - 1) / kBlock * kBlock;
        for (Long i = 0; i < end; ++i) alike |= Hashes[i] == hash ? 1 : 0;
        return alike != 0 && std::find(Keys.begin(), Keys.begin() + count, key) != Keys.begin() + count;
    }

    bool operator==(const KeyHistory& other) const { return Keys == other.Keys; }

private:
    static constexpr Long kBlock = 8;

    static std::uint32_t ShortHash(const PositionKey& key) {
        return static_cast<std::uint32_t>(key.Hash[0] ^ key.Hash[1]);
    }

    std::array<PositionKey, kTreeSize> Keys{};
    std::array<std::uint32_t, (kTreeSize + kBlock - 1) / kBlock * kBlock> Hashes{};
};

} // namespace tavlon12
