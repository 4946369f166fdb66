#pragma once

#include "HostSupportQt/Export.h"
#include "UserFunction.h"

#include <cstdint>

/// How a widget binds itself to an element of a script argument and of the result. A second base of
/// every binding widget; the widget also has the Qt property `isKvDialogWidget`, set to true.
class HOSTSUPPORTQT_EXPORT KV_FunctionDef {
public:
  KV_FunctionDef() = default;
  virtual ~KV_FunctionDef();
  KV_FunctionDef(const KV_FunctionDef&) = delete;
  KV_FunctionDef& operator=(const KV_FunctionDef&) = delete;

  virtual int vectorSize() { return 1; } ///< result elements that the widget fills
  virtual bool isReal() { return true; } ///< whether its value is a number
  virtual int defaultPrecision() { return 10; }
  virtual bool hasReadWidget() { return false; } ///< whether `readWidget` replaces the default read
  /// Loads the widget from the call; true if it has loaded itself.
  virtual bool initialiseWidget(UserFunctionInterface*) { return false; }
  /// Stores the widget at `result->data`, its first element; true if it has stored itself.
  virtual bool readWidget(UserReturnData* result, const UserFunctionInterface*);

  std::int32_t argIndex = -1;        ///< argument that loads the widget; -1 for none
  std::int32_t outElementIndex = -1; ///< result element that it fills first; -1 for none
  std::int32_t elementIndex = -1;    ///< element of that argument; -1: not loaded by element
};

/// The Qt properties of every binding widget; stands in the class behind Q_OBJECT.
#define KV_BINDING_PROPERTIES                                                                      \
  Q_PROPERTY(bool isKvDialogWidget READ isKvDialogWidget CONSTANT DESIGNABLE false STORED false)   \
  Q_PROPERTY(int argIndex MEMBER argIndex)                                                         \
  Q_PROPERTY(int elementIndex MEMBER elementIndex)                                                 \
  Q_PROPERTY(int outElementIndex MEMBER outElementIndex)                                           \
                                                                                                   \
public:                                                                                            \
  bool isKvDialogWidget() const {                                                                  \
    return true;                                                                                   \
  }                                                                                                \
                                                                                                   \
private:
