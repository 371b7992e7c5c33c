// The encoder writes to a stream in memory, which is read back whole.
#include "platform/win32/PictureEncoder.h"

#include "platform/win32/Handles.h"

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>

namespace plinth {
namespace {

struct Channels {
  std::uint32_t alpha, red, green, blue;
};

Channels channels(std::uint32_t argb) {
  return {argb >> 24, argb >> 16 & 0xFF, argb >> 8 & 0xFF, argb & 0xFF};
}

// Blue, green, red and, for PNG, alpha; the colours no longer multiplied by it.
Bytes straightRows(const Pixels& pixels, bool withAlpha) {
  Bytes rows;
  rows.reserve(pixels.argb.size() * (withAlpha ? 4 : 3));
  for (const std::uint32_t pixel : pixels.argb) {
    const Channels c = channels(pixel);
    const auto plain = [&](std::uint32_t value) -> std::uint8_t {
      if (!withAlpha) return static_cast<std::uint8_t>(std::min(255u, value + 255 - c.alpha));
      if (c.alpha == 0) return 0;
      return static_cast<std::uint8_t>(std::min(255u, (value * 255 + c.alpha / 2) / c.alpha));
    };
    rows.push_back(plain(c.blue));
    rows.push_back(plain(c.green));
    rows.push_back(plain(c.red));
    if (withAlpha) rows.push_back(static_cast<std::uint8_t>(c.alpha));
  }
  return rows;
}

Bytes bytesOf(IStream& stream) {
  STATSTG state = {};
  const LARGE_INTEGER begin = {};
  if (FAILED(stream.Stat(&state, STATFLAG_NONAME)) || FAILED(stream.Seek(begin, STREAM_SEEK_SET, nullptr)))
    return {};
  Bytes bytes(static_cast<std::size_t>(state.cbSize.QuadPart));
  ULONG read = 0;
  if (FAILED(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read))) return {};
  bytes.resize(read);
  return bytes;
}

bool writeFrame(IWICBitmapEncoder& encoder, const Pixels& pixels, bool withAlpha) {
  ComPtr<IWICBitmapFrameEncode> frame;
  const WICPixelFormatGUID wanted = withAlpha ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
  WICPixelFormatGUID format = wanted;
  const UINT width = static_cast<UINT>(pixels.size.width), height = static_cast<UINT>(pixels.size.height);
  if (FAILED(encoder.CreateNewFrame(frame.receive(), nullptr)) || FAILED(frame->Initialize(nullptr)) ||
      FAILED(frame->SetSize(width, height)) || FAILED(frame->SetPixelFormat(&format)) ||
      !::IsEqualGUID(format, wanted))
    return false;
  Bytes rows = straightRows(pixels, withAlpha);
  return SUCCEEDED(frame->WritePixels(height, width * (withAlpha ? 4 : 3), static_cast<UINT>(rows.size()),
                                      rows.data())) &&
         SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder.Commit());
}

Bytes encode(const Pixels& pixels, PictureFormat format) {
  const bool png = format == PictureFormat::png;
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IStream> stream;
  ComPtr<IWICBitmapEncoder> encoder;
  if (FAILED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, factory.receiveVoid())) ||
      FAILED(::CreateStreamOnHGlobal(nullptr, TRUE, stream.receive())) ||
      FAILED(factory->CreateEncoder(png ? GUID_ContainerFormatPng : GUID_ContainerFormatJpeg, nullptr,
                                    encoder.receive())) ||
      FAILED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache)) ||
      !writeFrame(*encoder.get(), pixels, png))
    return {};
  return bytesOf(*stream.get());
}

}  // namespace

Bytes encodePicture(const Pixels& pixels, PictureFormat format) {
  if (pixels.argb.empty()) return {};
  const bool com = SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  Bytes bytes = encode(pixels, format);
  if (com) ::CoUninitialize();
  return bytes;
}

}  // namespace plinth
