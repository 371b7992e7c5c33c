// See CreateApplication.h. The image is complete in memory before the output folder is touched: a run that
// fails or is cancelled until then leaves the earlier build as it was.
#include "builder/CreateApplication.h"

#include <algorithm>
#include <new>

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "basic/Text.h"
#include "builder/OutputFolder.h"
#include "builder/PayloadFromProject.h"
#include "builder/Stamping.h"
#include "builder/payload/PayloadFile.h"
#include "model/PictureStore.h"

namespace plinth {

namespace {

constexpr int kLabelTooSmall = 398, kLabelProgress = 336;
constexpr std::int64_t kSmallestRecord = 30;
constexpr std::size_t kInitialNameLength = 60;
constexpr std::size_t kPlacesShown = 10;
constexpr int kFirstToolImage = 100000, kLastToolImage = 100064;

// One run: what it works with and what it found so far.
class Run {
 public:
  Run(CreateEnvironment& environment, ProjectDocument& document, const CreateRequest& request)
      : env_(environment), document_(document), request_(request) {}

  CreateResult perform();

 private:
  CreateResult& end(CreateStatus status, const std::string& shown = {});
  bool nameIsUsable();
  bool buildImage();
  void tellCutTexts(const std::vector<std::string>& places);
  bool prepareFolder();
  bool writeExecutable();
  void copyHelp();
  void copyToolImages();
  void copyDefaultImage();
  void installer();
  Bytes icon();
  std::string program(const std::string& path) const { return env_.programFolder + path; }
  std::string inFolder(const std::string& name) const { return result_.folder + name; }
  void copy(const std::string& from, const std::string& to);

  CreateEnvironment& env_;
  ProjectDocument& document_;
  const CreateRequest& request_;
  CreateResult result_;
  std::string fileName_;  // the application's name as its files bear it
  Bytes image_;
};

CreateResult& Run::end(CreateStatus status, const std::string& shown) {
  result_.status = status;
  if (!shown.empty()) {
    result_.problem = shown;
    env_.messages.show(shown, MessageIcon::warning);
  }
  return result_;
}

bool Run::nameIsUsable() {
  if (trim(request_.name).empty()) {
    end(CreateStatus::noName);
    return false;
  }
  result_.appName = applicationName(request_.name);
  if (result_.appName.empty()) {
    end(CreateStatus::badName, "\"" + request_.name + "\" cannot be the name of an application");
    return false;
  }
  std::string parent = request_.folder.empty() ? env_.files.currentFolder() : request_.folder;
  if (!parent.empty() && parent.back() != '/' && parent.back() != '\\') parent += env_.files.separator();
  fileName_ = env_.fileName ? env_.fileName(result_.appName) : result_.appName;
  result_.folder = parent + fileName_ + env_.files.separator();
  result_.executable = inFolder(fileName_ + ".exe");
  return true;
}

// True for the one form that the engine's icon places take: a 32x32 image of 16 colours, first in its file.
bool isStampable(const Bytes& icon) {
  return icon.size() >= 766 && icon[18] == 22 && icon[22] == 40 && icon[26] == 32 && icon[36] == 4;
}

Bytes Run::icon() {
  for (const Bytes& bytes : {request_.iconBytes, document_.appIcon}) {
    if (bytes.size() <= kIconPixels) continue;
    if (!isStampable(bytes))
      result_.notes.push_back("The icon is not one 32x32 image of 16 colours and will look wrong");
    return bytes;
  }
  return {env_.defaultIcon.begin(), env_.defaultIcon.end()};
}

bool Run::buildImage() {
  Bytes stub(env_.stub.begin(), env_.stub.end());
  const Payload payload = payloadFromProject(document_, result_.appName, env_.pictures, result_.notes);
  stampStub(stub, icon(), document_.fileProp, result_.appName, codePageOfCharSet(document_.charSet));
  bool cancelled = false;
  Result<ApplicationImage> image = writeApplication(std::move(stub), payload, [&](int done, int total) {
    cancelled = !env_.progress.step(done, total);
    return !cancelled;
  });
  if (!image.ok()) {
    if (cancelled)
      end(CreateStatus::cancelled);
    else
      end(CreateStatus::failed, image.error().text);
    return false;
  }
  tellCutTexts(image->cutTexts);
  image_ = std::move(image->bytes);
  return true;
}

void Run::tellCutTexts(const std::vector<std::string>& places) {
  if (places.empty()) return;
  std::string message = "Texts that are too long were cut:";
  for (std::size_t i = 0; i < places.size(); ++i) {
    result_.notes.push_back(places[i] + ": the text is too long and was cut");
    if (i < kPlacesShown) message += "\r\n" + places[i];
  }
  if (places.size() > kPlacesShown) message += "\r\n...";
  env_.messages.show(message, MessageIcon::warning);
}

bool Run::prepareFolder() {
  OutputFolder folder(env_.files, result_.folder.substr(0, result_.folder.size() - 1), fileName_,
                      document_.options.text4);
  // A folder that merely bears the application's name may hold anything.
  if (!folder.isEarlierBuild() && !folder.filesToDelete().empty() &&
      !env_.messages.ask("All files in the folder " + result_.folder + " will be deleted. Continue?")) {
    end(CreateStatus::refused);
    return false;
  }
  const Result<void> prepared = folder.prepare(result_.notes);
  if (prepared.ok()) return true;
  if (env_.files.isFolder(result_.folder))
    end(CreateStatus::inUse, "Close previous running Application");
  else
    end(CreateStatus::failed, "The folder " + result_.folder + " cannot be made: " + prepared.error().text);
  return false;
}

bool Run::writeExecutable() {
  const Result<void> written = env_.files.write(result_.executable, image_);
  if (!written.ok()) end(CreateStatus::failed, result_.executable + ": " + written.error().text);
  return written.ok();
}

void Run::copy(const std::string& from, const std::string& to) {
  const Result<void> copied = env_.files.copy(from, to);
  if (!copied.ok()) result_.notes.push_back(from + " could not be copied: " + copied.error().text);
}

void Run::copyHelp() {
  if (document_.options.check1 == 0) return;
  const std::string languages = program("Languages") + env_.files.separator();
  std::string help = languages + env_.language + "b.chm";
  if (!env_.files.exists(help)) help = languages + "Englishb.chm";
  copy(help, inFolder(fileName_ + ".chm"));
}

void Run::copyToolImages() {
  if (document_.options.fieldToolBox == 0) return;
  const std::string from = program("Images") + env_.files.separator();
  const std::string to = inFolder("Images");
  if (const Result<void> made = env_.files.makeFolder(to); !made.ok()) {
    result_.notes.push_back("The folder " + to + " cannot be made: " + made.error().text);
    return;
  }
  int failed = 0;
  for (int number = kFirstToolImage; number <= kLastToolImage; ++number) {
    const std::string name = std::to_string(number) + ".GIF";
    const Result<void> copied = env_.files.copy(from + name, to + env_.files.separator() + name);
    if (!copied.ok() && copied.error().kind != ErrorKind::notFound) ++failed;  // which come along is free
  }
  if (failed > 0)
    result_.notes.push_back("Images of the tool box that could not be copied: " + std::to_string(failed));
}

// The application shows page 0 first: what lies on other pages is hidden then, and so are pictures that say
// so.
void Run::copyDefaultImage() {
  const bool hidden = std::any_of(
      document_.pictures.begin(), document_.pictures.end(),
      [](const PictureRow& row) { return isLivePage(row.page) && (row.page > 0 || !row.visible); });
  if (!hidden) return;
  const std::string& path = document_.defaultImagePath;
  const std::optional<Bytes> image = path.empty() ? std::nullopt : env_.pictures.get(path);
  if (!image) {
    copy(program("main.jpg"), inFolder("0.jpg"));
  } else if (const Result<void> written = env_.files.write(inFolder("0.jpg"), *image); !written.ok()) {
    result_.notes.push_back("0.jpg could not be written: " + written.error().text);
  }
}

void Run::installer() {
  if (!request_.setup) return;
  if (env_.installer) {
    env_.installer->run({result_.appName, result_.folder}, document_);
    return;
  }
  result_.notes.push_back("A setup program was asked for, but this version cannot make one");
  env_.messages.show(result_.notes.back(), MessageIcon::warning);
}

CreateResult Run::perform() {
  if (!nameIsUsable()) return result_;
  env_.progress.title(env_.labelText(kLabelProgress));
  document_.dirty = true;
  if (buildImage() && prepareFolder() && writeExecutable()) {
    result_.status = CreateStatus::created;
    copyHelp();
    copyToolImages();
    copyDefaultImage();
    installer();
  }
  env_.progress.title("");
  return result_;
}

template <class Row>
std::int64_t lengths(const std::vector<Row>& rows, std::size_t first) {
  std::int64_t sum = 0;
  for (std::size_t i = first; i < rows.size(); ++i) {
    if (isLivePage(rows[i].page)) sum += std::max<std::int64_t>(rows[i].fieldLength, 0);
  }
  return sum;
}

}  // namespace

CompileApp::CompileApp(CreateEnvironment environment) : environment_(std::move(environment)) {}

bool CompileApp::bigEnough(const ProjectDocument& document) {
  const std::int64_t checks = std::count_if(document.checks.begin(), document.checks.end(),
                                            [](const CheckRow& row) { return isLivePage(row.page); });
  const std::int64_t size =
      lengths(document.fields, 1) + lengths(document.memos, 1) + lengths(document.combos, 1) + checks;
  if (size < kSmallestRecord)
    environment_.messages.show(environment_.labelText(kLabelTooSmall), MessageIcon::warning);
  return size >= kSmallestRecord;
}

CreateResult CompileApp::run(ProjectDocument& document, const CreateRequest& request) {
  if (!bigEnough(document)) {
    CreateResult small;
    small.status = CreateStatus::tooSmall;
    small.problem = environment_.labelText(kLabelTooSmall);
    return small;
  }
  try {
    return Run(environment_, document, request).perform();
  } catch (const std::bad_alloc&) {
    environment_.progress.title("");
    CreateResult failed;
    failed.problem = "There is not enough memory to create the application";
    environment_.messages.show(failed.problem, MessageIcon::error);
    return failed;
  }
}

std::string initialApplicationName(const ProjectDocument& document) {
  return document.appTitle.substr(0, kInitialNameLength);
}

std::string applicationName(std::string_view typed) {
  const std::string name = safeFileName(typed);
  return safeFileName(name.substr(0, name.find('.')));
}

Bytes LoadIconFile(const Files& files, const std::string& path, std::span<const std::uint8_t> defaultIcon) {
  if (!path.empty() && files.exists(path)) {
    if (Result<Bytes> bytes = files.read(path); bytes.ok()) return std::move(*bytes);
  }
  return {defaultIcon.begin(), defaultIcon.end()};
}

}  // namespace plinth
