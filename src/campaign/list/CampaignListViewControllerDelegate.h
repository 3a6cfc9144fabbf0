#pragma once

#include "base/Error.h"

#include <orrelo/Export.h>

namespace orrelo {

/// The screen that contains a list of campaigns, and shows the list's activity and errors. Main thread.
class ORRELO_EXPORT CampaignListViewControllerDelegate {
 public:
  virtual ~CampaignListViewControllerDelegate() = default;

  virtual void startActivityIndicator() = 0;
  virtual void stopActivityIndicator() = 0;
  /// Shows the error in place of the list.
  virtual void showListError(const Error& error) = 0;
  virtual void hideListError() = 0;
};

}  // namespace orrelo
