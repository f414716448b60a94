#pragma once
// The tokens of the one line being cut, made as lines need them: most lines hold a few dozen
// tokens, and the two thousand a line may hold, made at the start, cost a small file's run a
// fifteenth of its time. They come in fixed blocks, so that a token never moves: a composed text
// views the token's own string.
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "analysis/source_model.h"

namespace hlyd {

class WorkTokenArray {
public:
    WorkToken& operator[](std::int32_t i) {
        auto block = static_cast<std::size_t>(i) >> kBlockBits;
        if (block >= blocks_.size()) growTo(block);
        return (*blocks_[block])[static_cast<std::size_t>(i) & (kBlockSize - 1)];
    }

private:
    static constexpr int kBlockBits = 6;
    static constexpr std::size_t kBlockSize = std::size_t{1} << kBlockBits;
    using Block = std::array<WorkToken, kBlockSize>;

    void growTo(std::size_t block) {
        while (blocks_.size() <= block) blocks_.push_back(std::make_unique<Block>());
    }

    std::vector<std::unique_ptr<Block>> blocks_;
};

}  // namespace hlyd
