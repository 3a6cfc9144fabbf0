#include "viewkit/ErrorView.h"

#include "base/ErrorText.h"
#include "base/explain.h"

#include <string>
#include <string_view>

namespace orrelo {
namespace {

std::string_view remedyOf(const Error& error) {
  if (error == makeError(OrreloError::notLoggedIn)) return " Call Orrelo::setUser first.";
  if (error == makeError(OrreloError::campaignNotExists))
    return " The service lists no such campaign for this user.";
  if (error == makeError(OrreloError::emptyCampaigns)) return " The service lists no campaign for this user.";
  return "";
}

}  // namespace

void ErrorView::setText(const Error& error) {
  explain(ExplanationLevel::warning, [&] {
    return "A screen shows an error in place of its content: " + error.description() + '.' +
           std::string(remedyOf(error));
  });
  state.change([&](State& changed) { changed.text = errorText(error); });
}

void ErrorView::setHidden(bool isHidden) {
  state.change([&](State& changed) { changed.isHidden = isHidden; });
}

}  // namespace orrelo
