// Images of records: kept as files of their own in PicDir, under a running number that the record holds as
// the picture's stem. Decoders look at the bytes, so that the names need no extension.
#pragma once

#include <string>
#include <string_view>

#include "basic/Geometry.h"
#include "engine/RecordSession.h"
#include "platform/Canvas.h"

namespace plinth {

// The size for an image in a box: never larger than the image nor below 1 pixel. keepRatio: both sides by the
// same factor; else each side is cut down to the box by itself.
SizePx reducedSize(SizePx image, SizePx box, bool keepRatio);

class DataPictures {
 public:
  // All must outlive this.
  DataPictures(RecordSession& session, Files& files, Messages& messages, ImageDecoder& decoder)
      : session_(session), files_(files), messages_(messages), decoder_(decoder) {}

  // Whether picture n (0 upward) of the record shown belongs to the record and may be changed.
  bool mayChange(int n) const;
  // Keeps an encoded image as picture n of the record shown. name: what messages call it. False, with a
  // message, when it is no image or cannot be written; nothing is changed then. The file of the image before
  // stays, since other records may show it and this one may yet not be saved.
  bool store(int n, const Bytes& image, std::string_view name);
  // The same with a file's bytes; also false, with a message, when it cannot be read.
  bool storeFile(int n, const std::string& path);
  // The blank picture in its place.
  bool clear(int n);
  // The bytes of a file that decode as an image; nullopt after a message.
  std::optional<Bytes> readImage(const std::string& path);

 private:
  bool write(const std::string& path, int number, const Bytes& image);
  void showError(const Error& error) const;
  void showBadImage(std::string_view name) const;
  RecordSession& session_;
  Files& files_;
  Messages& messages_;
  ImageDecoder& decoder_;
};

}  // namespace plinth
