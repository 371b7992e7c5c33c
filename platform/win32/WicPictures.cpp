// The imaging component hands out one picture at a time through COM; every step may fail on a damaged file.
#include "platform/win32/WicPictures.h"

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>

#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr std::uint64_t kMostPixels = 100'000'000;

// COM for the length of a call; a thread that already runs it differently serves as well.
class ComScope {
 public:
  ComScope() : result_(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~ComScope() {
    if (SUCCEEDED(result_)) ::CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  HRESULT result_;
};

ComPtr<IWICImagingFactory> makeFactory() {
  ComPtr<IWICImagingFactory> factory;
  ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                     factory.receiveVoid());
  return factory;
}

// Width and height within the limits; nothing otherwise.
SizePx sizeOf(IWICBitmapSource& source) {
  UINT width = 0, height = 0;
  if (FAILED(source.GetSize(&width, &height)) || width == 0 || height == 0) return {};
  if (width > 0xFFFF || height > 0xFFFF || std::uint64_t{width} * height > kMostPixels) return {};
  return {static_cast<int>(width), static_cast<int>(height)};
}

ComPtr<IWICBitmapFrameDecode> largestFrame(IWICBitmapDecoder& decoder) {
  UINT count = 0;
  GUID container = {};
  if (FAILED(decoder.GetFrameCount(&count)) || FAILED(decoder.GetContainerFormat(&container))) return {};
  if (container != GUID_ContainerFormatIco) count = std::min(count, 1u);
  ComPtr<IWICBitmapFrameDecode> best;
  for (UINT i = 0; i < count; ++i) {
    ComPtr<IWICBitmapFrameDecode> frame;
    if (FAILED(decoder.GetFrame(i, frame.receive()))) continue;
    if (!best || sizeOf(*frame.get()).width > sizeOf(*best.get()).width) best = std::move(frame);
  }
  return best;
}

bool copyPixels(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame, Pixels& pixels) {
  ComPtr<IWICFormatConverter> converter;
  pixels.size = sizeOf(frame);
  if (pixels.size.width == 0 || FAILED(factory.CreateFormatConverter(converter.receive())) ||
      FAILED(converter->Initialize(&frame, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom)))
    return false;
  pixels.argb.resize(static_cast<std::size_t>(pixels.size.width) * pixels.size.height);
  const UINT stride = static_cast<UINT>(pixels.size.width) * 4;
  return SUCCEEDED(converter->CopyPixels(nullptr, stride, stride * static_cast<UINT>(pixels.size.height),
                                         reinterpret_cast<BYTE*>(pixels.argb.data())));
}

bool decodeInto(std::span<const std::uint8_t> bytes, Pixels& pixels) {
  const ComPtr<IWICImagingFactory> factory = makeFactory();
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapDecoder> decoder;
  if (!factory || FAILED(factory->CreateStream(stream.receive())) ||
      FAILED(
          stream->InitializeFromMemory(const_cast<BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()))) ||
      FAILED(factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                              decoder.receive())))
    return false;
  const ComPtr<IWICBitmapFrameDecode> frame = largestFrame(*decoder.get());
  return frame && copyPixels(*factory.get(), *frame.get(), pixels);
}

}  // namespace

const GdiBitmap& GdiImage::bitmapFor(SizePx size) const {
  const SizePx wanted{std::clamp(size.width, 1, pixels_.size.width),
                      std::clamp(size.height, 1, pixels_.size.height)};
  if (!bitmap_ || bitmap_->size().width != wanted.width || bitmap_->size().height != wanted.height) {
    const bool whole = wanted.width == pixels_.size.width && wanted.height == pixels_.size.height;
    bitmap_.emplace(whole ? pixels_ : reduced(pixels_, wanted));
  }
  return *bitmap_;
}

std::shared_ptr<Image> WicDecoder::decode(const Bytes& bytes) {
  if (bytes.empty() || bytes.size() > 0x7FFFFFFF) return nullptr;
  const ComScope com;
  Pixels pixels;
  if (!decodeInto(bytes, pixels)) return nullptr;
  const bool transparent = premultiply(pixels);
  return std::make_shared<GdiImage>(std::move(pixels), transparent);
}

bool savePng(const Pixels& pixels, const std::string& path) {
  const ComScope com;
  const ComPtr<IWICImagingFactory> factory = makeFactory();
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapEncoder> encoder;
  ComPtr<IWICBitmapFrameEncode> frame;
  WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGRA;
  const UINT width = static_cast<UINT>(pixels.size.width), height = static_cast<UINT>(pixels.size.height);
  return factory && !pixels.argb.empty() && SUCCEEDED(factory->CreateStream(stream.receive())) &&
         SUCCEEDED(stream->InitializeFromFilename(toWide(path, systemCodePage()).c_str(), GENERIC_WRITE)) &&
         SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.receive())) &&
         SUCCEEDED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache)) &&
         SUCCEEDED(encoder->CreateNewFrame(frame.receive(), nullptr)) &&
         SUCCEEDED(frame->Initialize(nullptr)) && SUCCEEDED(frame->SetSize(width, height)) &&
         SUCCEEDED(frame->SetPixelFormat(&format)) &&
         SUCCEEDED(
             frame->WritePixels(height, width * 4, width * 4 * height,
                                reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(pixels.argb.data())))) &&
         SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

}  // namespace plinth
