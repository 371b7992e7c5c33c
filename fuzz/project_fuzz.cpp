// Any bytes as a project file: read, write, read again. What was read must survive the round, and the second
// file must be whole.
#include <cstdint>
#include <cstdlib>

#include "model/DerivedTexts.h"
#include "model/ProjectDescription.h"
#include "model/ProjectFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace plinth;
  MemoryPictures pictures;
  LoadResult loaded = readProject({data, size}, pictures);
  if (!loaded.accepted) return 0;
  const WriteOptions options{"C:\\fuzz.qvf", 45000};
  const Bytes first = writeProject(loaded.document, pictures, options).bytes;
  LoadResult again = readProject(first, pictures, {.checkPaths = false});
  if (!again.complete) std::abort();
  if (writeProject(again.document, pictures, options).bytes.size() != first.size()) std::abort();
  describeProject(again.document, pictures, again.facts);
  showProject(again.document);
  return 0;
}
