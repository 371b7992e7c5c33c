// The file comes first, then the record: a record never names an image that is not there.
#include "engine/DataPictures.h"

#include <algorithm>
#include <cmath>

#include "basic/CodePage.h"
#include "basic/DisplayFormat.h"
#include "basic/FileName.h"
#include "basic/Text.h"

namespace plinth {
namespace {

constexpr int kStemDigits = 8;
constexpr int kLastNumber = 99'999'999;
constexpr int kBadImageMessage = 54;

}  // namespace

SizePx reducedSize(SizePx image, SizePx box, bool keepRatio) {
  const auto side = [](double length, int most) {
    return std::clamp(static_cast<int>(std::lround(length)), 1, std::max(1, most));
  };
  double across = std::min(1.0, box.width / std::max(1.0, static_cast<double>(image.width)));
  double down = std::min(1.0, box.height / std::max(1.0, static_cast<double>(image.height)));
  if (keepRatio) across = down = std::min(across, down);
  return {side(image.width * across, image.width), side(image.height * down, image.height)};
}

void DataPictures::showError(const Error& error) const {
  const std::string cause = fromUtf8(error.text, session_.application().codePage);
  const std::string text = runMessage(session_.application(), 21, cause);
  messages_.show(contains(text, cause) ? text : text + cause, MessageIcon::error);
}

void DataPictures::showBadImage(std::string_view name) const {
  const std::string text = runMessage(session_.application(), kBadImageMessage, name);
  messages_.show(text.empty() ? "The picture " + std::string(name) + " cannot be shown." : text,
                 MessageIcon::warning);
}

bool DataPictures::mayChange(int n) const {
  const Application& application = session_.application();
  if (!session_.isOpen() || session_.readOnly() || n < 0 || n > application.pictureCount()) return false;
  const PayloadPicture& row = application.picture(n);
  return row.isData() && Application::live(row.page) &&
         !session_.form().pictures[static_cast<std::size_t>(n)].locked;
}

std::optional<Bytes> DataPictures::readImage(const std::string& path) {
  Result<Bytes> bytes = files_.read(path);
  if (!bytes) {
    showError(bytes.error());
    return std::nullopt;
  }
  if (!decoder_.decode(*bytes)) {
    showBadImage(fileNameOf(path));
    return std::nullopt;
  }
  return std::move(*bytes);
}

bool DataPictures::storeFile(int n, const std::string& path) {
  if (!mayChange(n)) return false;
  const std::optional<Bytes> image = readImage(path);
  return image && store(n, *image, fileNameOf(path));
}

// The number is taken before the file is written, so that two users who add a picture at once hardly ever
// meet; one they both reach is stepped over by whoever comes second.
bool DataPictures::write(const std::string& path, int number, const Bytes& image) {
  if (const auto counted = session_.store()->setPictureCounter(number); !counted) {
    showError(counted.error());
    return false;
  }
  if (const auto written = files_.write(path, image); !written) {
    showError(written.error());
    return false;
  }
  return true;
}

bool DataPictures::store(int n, const Bytes& image, std::string_view name) {
  if (!mayChange(n)) return false;
  if (!decoder_.decode(image)) {
    showBadImage(name);
    return false;
  }
  const std::string folder =
      pictureFolderOf(session_.dataFile(), session_.application().codePage, files_.separator());
  if (!files_.isFolder(folder))
    if (const auto made = files_.makeFolder(folder); !made) {
      showError(made.error());
      return false;
    }
  // A counter that somebody's file spoiled begins anew.
  int number = session_.store()->pictureCounter();
  if (number < 0 || number >= kLastNumber) number = 0;
  std::string stem;
  do {
    if (++number > kLastNumber) {
      showError({ErrorKind::full, "There is no number left for another picture."});
      return false;
    }
    stem = zeroPadded(number, kStemDigits);
  } while (files_.exists(folder + stem));
  if (!write(folder + stem, number, image)) return false;
  const bool changed = session_.changeForm(
      [&](RecordForm& form) { form.pictures[static_cast<std::size_t>(n)].stem = stem; });
  // Another user holds the record: nobody will ever name the file.
  if (!changed) static_cast<void>(files_.removeFile(folder + stem));
  return changed;
}

bool DataPictures::clear(int n) {
  if (!mayChange(n)) return false;
  if (session_.form().pictures[static_cast<std::size_t>(n)].stem.empty()) return true;
  return session_.changeForm(
      [n](RecordForm& form) { form.pictures[static_cast<std::size_t>(n)].stem.clear(); });
}

}  // namespace plinth
