#include "engine/win32/EngineTools.h"

#include "engine/win32/UsersWindow.h"

namespace plinth {

EngineTools::EngineTools(EngineHost& host, Messages& messages, SharedFiles& files, Settings& settings,
                         Clipboard& clipboard)
    : host_(host),
      messages_(messages),
      progress_(host.application()),
      searches_({host.session(), files, messages, progress_}),
      search_(host, searches_, settings),
      results_(host, searches_, settings, [this](SearchResult* within) { find(within); },
               [this](const SearchResult& gone) { search_.forget(gone); }),
      calculator_(host.application(), host.session().locale(), settings, clipboard,
                  [this](const std::string& number) {
                    bool done = false;
                    host_.act([&] { done = host_.session().fieldNumberPicked(number); });
                    return done;
                  }) {
  searches_.setView(&results_);
  host.session().setQueries(&searches_);
}

EngineTools::~EngineTools() { host_.session().setQueries(nullptr); }

void EngineTools::open(HWND owner) {
  owner_ = owner;
  progress_.open(owner);
  results_.setOwner(owner);
}

void EngineTools::find(SearchResult* within, const std::string& line) { search_.open(owner_, within, line); }

void EngineTools::showUsers() { showUsersWindow(owner_, host_.session(), messages_); }

void EngineTools::databaseClosed() {
  results_.closeAll();
  search_.forget();
}

bool EngineTools::takes(const MSG& message) const {
  return search_.takes(message) || results_.takes(message) || progress_.takes(message);
}

}  // namespace plinth
