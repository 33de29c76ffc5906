#include "backends/juce/Picture.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace juce_backend {
namespace {

constexpr juce::uint32 opaqueBlack = 0xff000000;

class PictureType : public juce::ImageType {
 public:
  juce::ImagePixelData::Ptr create(juce::Image::PixelFormat, int width, int height,
                                   bool) const override;
  int getTypeID() const override { return 0x4f727600; }
};

/// JUCE's own pictures of this format have 24 bits a pixel.
class WidePixels : public juce::ImagePixelData {
 public:
  WidePixels(int width, int height)
      : ImagePixelData(juce::Image::RGB, width, height),
        pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), opaqueBlack) {}

  std::unique_ptr<juce::LowLevelGraphicsContext> createLowLevelContext() override {
    sendDataChangeMessage();
    return std::make_unique<juce::LowLevelGraphicsSoftwareRenderer>(juce::Image(*this));
  }
  juce::ImagePixelData::Ptr clone() override {
    auto* copy = new WidePixels(width, height);
    copy->pixels_ = pixels_;
    return *copy;
  }
  std::unique_ptr<juce::ImageType> createType() const override {
    return std::make_unique<PictureType>();
  }
  void initialiseBitmapData(juce::Image::BitmapData& bitmap, int x, int y,
                            juce::Image::BitmapData::ReadWriteMode mode) override {
    const std::size_t offset =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    bitmap.data = reinterpret_cast<juce::uint8*>(pixels_.data() + offset);
    bitmap.size = (pixels_.size() - offset) * sizeof(juce::uint32);
    bitmap.pixelFormat = pixelFormat;
    bitmap.pixelStride = sizeof(juce::uint32);
    bitmap.lineStride = width * static_cast<int>(sizeof(juce::uint32));
    if (mode != juce::Image::BitmapData::readOnly) sendDataChangeMessage();
  }

 private:
  std::vector<juce::uint32> pixels_;
};

juce::ImagePixelData::Ptr PictureType::create(juce::Image::PixelFormat, int width, int height,
                                              bool) const {
  return *new WidePixels(width, height);
}

}  // namespace

juce::Image makePicture(int width, int height) {
  return juce::Image(
      PictureType().create(juce::Image::RGB, std::max(1, width), std::max(1, height), true));
}

}  // namespace juce_backend
