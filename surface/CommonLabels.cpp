// The order is a list of numbers; the texts stay where they are.
#include "surface/CommonLabels.h"

#include <algorithm>
#include <numeric>

#include "basic/CodePage.h"
#include "basic/Text.h"

namespace plinth {
namespace {

constexpr int kLastEdited = kLastLabel - 1;  // the last text is no common one

}  // namespace

CommonLabels::CommonLabels(LanguageTexts& texts)
    : texts_(texts), order_(static_cast<std::size_t>(kLastEdited - kFirstLabel + 1)) {
  orderByNumber();
}

void CommonLabels::orderByNumber() { std::iota(order_.begin(), order_.end(), kFirstLabel); }

void CommonLabels::orderByText() {
  orderByNumber();
  std::ranges::stable_sort(order_, {},
                           [this](int number) -> const std::string& { return texts_.text(number); });
}

int CommonLabels::most() const { return static_cast<int>(order_.size()) - kRows; }

void CommonLabels::scrollTo(int first) { first_ = std::clamp(first, 0, most()); }

int CommonLabels::number(int row) const {
  return order_[static_cast<std::size_t>(first_ + std::clamp(row, 0, kRows - 1))];
}

const std::string& CommonLabels::text(int row) const { return texts_.text(number(row)); }

void CommonLabels::change(int row, std::string text) { texts_.setText(number(row), std::move(text)); }

int CommonLabels::find(const std::string& part) const {
  const int codePage = codePageOfCharSet(texts_.charSet());
  const auto holds = [&](int number) {
    const std::string text = replaceAll(texts_.text(number), "&", "");
    return findFolded(text, part, 0, codePage) != std::string_view::npos ||
           findFolded(texts_.text(number), part, 0, codePage) != std::string_view::npos;
  };
  const std::size_t count = part.empty() ? 0 : order_.size();
  for (std::size_t step = 1; step <= count; ++step) {
    const std::size_t position = (static_cast<std::size_t>(first_) + step) % count;
    if (holds(order_[position])) return static_cast<int>(position);
  }
  return -1;
}

}  // namespace plinth
