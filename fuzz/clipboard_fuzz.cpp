// Any bytes as clipboard text, pasted twice; what was made is copied, pasted into an empty project and copied
// again, which must give the same lines. In between some of it is deleted.
#include <cstdint>
#include <cstdlib>

#include "surface/ObjectClipboard.h"
#include "surface/ObjectDelete.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace plinth;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const TextMeasure measure = [](std::string_view shown, const FontSpec&) {
    return SizePx{static_cast<int>(shown.size()), 10};
  };
  ProjectDocument document;
  pasteObjects(document, text, 0, {10, 10});
  const PasteResult pasted = pasteObjects(document, text, 1, {-5, 30000});
  const std::string copy = clipboardText(document, pasted.objects, measure);

  std::string rounds[2];
  for (std::string& lines : rounds) {
    ProjectDocument other;
    const PasteResult again = pasteObjects(other, &lines == rounds ? copy : rounds[0], 0, {});
    lines = clipboardText(other, again.objects, measure);
  }
  if (rounds[0] != rounds[1]) std::abort();

  std::vector<ObjectRef> half;
  for (std::size_t i = 0; i < pasted.objects.size(); i += 2) half.push_back(pasted.objects[i]);
  deleteObjects(document, half, size % 2 == 0);
  for (const FieldRow& row : document.fields)
    if (row.tabOrder < 0 || row.tabOrder > 32000) std::abort();
  return 0;
}
