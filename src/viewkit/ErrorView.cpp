#include "viewkit/ErrorView.h"

#include "base/ErrorText.h"

namespace orrelo {

void ErrorView::setText(const Error& error) {
  state.change([&](State& changed) { changed.text = errorText(error); });
}

void ErrorView::setHidden(bool isHidden) {
  state.change([&](State& changed) { changed.isHidden = isHidden; });
}

}  // namespace orrelo
