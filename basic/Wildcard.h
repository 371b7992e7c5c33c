// The wildcard pattern of searches: "*" any run of characters, "?" any one, "#" any digit, "[abc]" or "[a-z]"
// one of these, "[!abc]" none of these.
#pragma once

#include <string_view>

namespace plinth {

// True when the whole text matches the pattern, byte for byte (case counts; fold both before for a match
// without case). A malformed pattern ("[" without "]") matches nothing. Linear in text x pattern, never
// exponential.
bool wildcardMatch(std::string_view text, std::string_view pattern);

}  // namespace plinth
