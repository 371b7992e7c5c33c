// The one locale that is built in; others come from the person's system.
#include "basic/Locale.h"

namespace plinth {

const Locale& englishLocale() {
  static const Locale locale;
  return locale;
}

}  // namespace plinth
