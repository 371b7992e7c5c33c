// The person's number, money and date forms as the system tells them.
#pragma once

#include "basic/Locale.h"

namespace plinth {

// Windows: the user's regional settings; elsewhere: LC_* of the environment where the C library knows them,
// else English. Fields the system does not tell keep the English default.
Locale systemLocale();

}  // namespace plinth
