// Data file and settings file of a finished application: whatever bytes they hold, a session opens, walks and
// changes records without a crash, and a settings file never removes the password.
#include <cstdint>
#include <cstdlib>

#include "engine/FlatRecordStore.h"
#include "engine/RecordSession.h"
#include "tests/engine/EngineFixture.h"

using namespace plinth;

namespace {

Payload fuzzPayload(bool scramble) {
  Payload p = shopPayload();
  for (int kind = 0; kind <= 23; ++kind) p.fields.push_back(fieldRow("kind", kind, 12));
  p.fields[1].dummyField = -1;
  p.pictures.resize(1);
  p.pictures[0].page = 0;
  p.header.varObjects = 1;
  p.header.scrambleData = scramble;
  p.application.mainPassword = "boss";
  return p;
}

void walkRecords(User& user) {
  RecordSession& session = *user.session;
  if (!session.openData(false)) return;
  for (const int step : {3, 3, 5, 2, 0}) session.command2Click(step);
  user.type(2, "12.5");
  session.erasefileClick();
  session.newbutClick();
  session.close();
}

}  // namespace

// The first byte says which file the others are: settings, data, data with substituted records.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Bytes bytes(data + 1, data + size);
  Payload payload = fuzzPayload(data[0] % 3 == 2);
  if (data[0] % 3 == 0) {
    const Application application = makeApplication(payload);
    RecordForm form = makeRecordForm(application);
    UserTable users = initialUsers(application);
    readCfg(bytes, application, form, users);
    if (!loginRequired(users)) std::abort();
    return 0;
  }
  payload.application.mainPassword.clear();
  User user(payload, std::make_shared<MemoryDisk>(), 200000);
  user.files.put("/app/Shop.dbd", bytes);
  walkRecords(user);
  return 0;
}
