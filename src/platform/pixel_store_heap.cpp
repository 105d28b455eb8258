// Pixels in plain heap memory.
#include "image/pixel_store.h"

#include <cstdlib>

namespace kelvane {
namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

class HeapStore final : public PixelStore {
  public:
    explicit HeapStore(std::unique_ptr<std::uint8_t, FreeMemory> memory)
        : memory_(std::move(memory)) {}
    std::uint8_t* bits() override { return memory_.get(); }
    DeviceContext device_context() const override { return nullptr; }
    BitmapHandle bitmap() const override { return nullptr; }

  private:
    std::unique_ptr<std::uint8_t, FreeMemory> memory_;
};

} // namespace

std::unique_ptr<PixelStore> PixelStore::create(int, int height, std::size_t bytes_per_row,
                                               DeviceContext) {
    // calloc takes fresh zero pages from the system without touching them.
    std::unique_ptr<std::uint8_t, FreeMemory> memory(
        static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(height), bytes_per_row)));
    if (!memory) return nullptr;
    return std::make_unique<HeapStore>(std::move(memory));
}

} // namespace kelvane
