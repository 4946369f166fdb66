#pragma once

#include "Core/Frame/Texts.h"
#include "Frame/KelvarinDialogData.h"
#include "Frame/WaitingDialog.h"
#include "Frame/WidgetStates.h"
#include "HostSupport/YString.h"
#include "UserFunction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>

/// Base of the script dialogs: the road from the script's call to its result.
///
/// A form names which argument element each widget shows and which result element it fills; a
/// dialog overrides what goes beyond that. The argument accessors hold during `runDialog` only and
/// are safe for arguments that were not passed.
class KelvarinDialog : public WaitingDialog {
public:
  KelvarinDialog(QWidget* parent, const char* objectName, bool modal, Qt::WindowFlags extraFlags);
  ~KelvarinDialog() override;

  virtual int helpContextId(); ///< number of the help page; -1 for none
  virtual void initialiseDialog();
  virtual void readDialog(UserDataType type, bool accepted);
  /// Wires okButton, cancelButton and helpButton; overrides build what depends on the arguments,
  /// then call this.
  virtual void prepareDialog(UserFunctionInterface* args, UserDataType type);
  virtual YString dimsKey();
  virtual bool applyStoredSize();
  virtual void helpClicked();
  virtual void okClicked();
  virtual void cancelClicked();

  /// Finishes the field that the user is in, whoever accepts, before the dialog closes.
  void accept() override;

  /// Prepares, loads, runs and reads the dialog. `type` is what the result is made of. Returns
  /// whether the user accepted.
  bool runDialog(UserFunctionInterface* args, UserDataType type);

  // Of an argument of the other kind the accessors of one value, and `copyReals`, give what it
  // reads as: of "4.7k" the number, of a number its text.
  double getReal(int index) const;            ///< first element, or 0
  bool getReal(int index, double* out) const; ///< false, `*out` untouched, if missing or empty
  YString getString(int index) const;         ///< first element, or empty
  bool getString(int index, YString* out) const;
  /// The vector if the argument is one of reals, else null and 0 and false.
  bool getRealVector(int index, const double** reals, unsigned* count) const;
  bool getStringVector(int index, const char* const** strings, unsigned* count) const;
  Texts texts(int index) const { return Texts(scriptArgs, index); } ///< the same, by place
  /// Copies at most `byteSize` bytes of doubles and returns the number of elements copied; those of
  /// `out` behind them stay.
  unsigned copyReals(int index, double* out, unsigned byteSize) const;

  /// Elements of an argument; one that is missing or NaN is as in `defaults`.
  template <std::size_t Count>
  std::array<double, Count> numbers(int argument, const std::array<double, Count>& defaults) const {
    std::array<double, Count> read = defaults;
    copyReals(argument, read.data(), sizeof read);
    std::transform(read.cbegin(), read.cend(), defaults.cbegin(), read.begin(),
                   [](double given, double other) { return std::isnan(given) ? other : given; });
    return read;
  }

  // The result makers give null, or do nothing, where the host has no memory to give.
  char* hostString(const QString& text) const;
  char* hostString(const char* text) const;
  double* makeRealResult(int count) const;
  char** makeStringResult(int count) const;
  void setRealResult(double value) const;
  void setStringResult(const YString& value) const;
  void setTextsResult(const TextVector& texts) const { texts.makeResult(scriptArgs); }

  using QDialog::setEnabled;

protected:
  /// Finishes what the user is typing, be it a number or a table cell that is still open. `accept`
  /// does so; who looks at the fields before it, does it himself.
  void finishField();

  static void setEnabled(std::initializer_list<QWidget*> widgets, bool enabled) {
    ::setEnabled(widgets, enabled);
  }

  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

  /// Stands round code that changes widgets by program, so that the slots that answer the user keep
  /// still: they return at once while `updating` is set.
  class Updating {
  public:
    explicit Updating(KelvarinDialog* dialog) : m_flag(dialog->updating), m_before(m_flag) {
      m_flag = 1;
    }
    ~Updating() { m_flag = m_before; }
    Updating(const Updating&) = delete;
    Updating& operator=(const Updating&) = delete;

  private:
    std::int32_t& m_flag;
    std::int32_t m_before;
  };

  UserFunctionInterface* scriptArgs = nullptr; ///< the call in progress; not owned
  std::unique_ptr<UserReturnData> resultData;
  std::int32_t updating = 0;
  bool dimsSavingEnabled = true; ///< geometry is restored on show and saved on hide
  std::unique_ptr<KelvarinDialogData> dialogData;

private:
  const UserArgument* argument(int index) const;
  void commitAndAccept(QWidget* okButton);
};
