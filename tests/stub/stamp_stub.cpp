// usage: stamp_stub STUB ICON APPNAME OUT: stamps a copy of an engine image with texts that the test knows.
#include <fstream>
#include <iterator>

#include "builder/Stamping.h"

namespace {

plinth::Bytes load(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  plinth::Bytes stub = load(argv[1]);
  plinth::FileProperties properties;
  properties.comments = {"Ex\xE4mple Company", "A description that is longer than forty characters", "",
                         "Trademarks of 0123456789", "Product"};
  plinth::stampStub(stub, load(argv[2]), properties, argv[3]);
  std::ofstream(argv[4], std::ios::binary)
      .write(reinterpret_cast<const char*>(stub.data()), static_cast<std::streamsize>(stub.size()));
}
