#pragma once

/// Base of what a dialog keeps beside its form.
class KelvarinDialogData {
public:
  virtual ~KelvarinDialogData() = default;
};
