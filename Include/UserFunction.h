#pragma once

#include <cstddef>
#include <cstdint>

// The binary records that the host and the module share. Their layout is a contract between two
// separately built programs: 64-bit pointers, little-endian, no type whose size differs between
// the LP64 and LLP64 models.

struct UserFunctionInterface;

/// Run-time kind of an argument or result vector.
enum UserDataType : std::uint32_t {
  UserReal = 0,   ///< `double*`
  UserString = 2, ///< `char**`, UTF-8
  UserOpaque = 3, ///< a pointer to a host pointer
};

/// Declared argument type of a script function; a scalar counts as a vector of one.
enum ArgType : std::uint32_t {
  StringArg = 1,
  AnyArg = 3,
  RealArg = 4,
};

/// Declared result type of a script function. The host shows it to script authors; what a handler
/// writes is what the script gets.
enum ResultType : std::uint32_t {
  NoResult = 0,
  BoolVectorResult = 3,
  NumberResult = 4,
  IntVectorResult = 6,
  RealVectorResult = 9,
  StatusResult = 10,
  OptionalStringResult = 11,
  StringVectorResult = 12,
};

constexpr int maxUserArguments = 32;

/// One argument of a call, and one operand or result of `callFunction`.
struct UserArgument {
  std::uint64_t reserved0;
  void* data;            ///< `double*`, `char**`, or pointer to the pointer, by `type`
  const void* reference; ///< x values of a real vector that has them, else null
  std::uint32_t count;   ///< elements of `data` (and of `reference`)
  UserDataType type;
  std::uint64_t reserved1[4];
};

using MakeStringResult = char** (*)(UserFunctionInterface*, int count);
using MakeRealResult = double* (*)(UserFunctionInterface*, int count, const char* physicalType);
using HostString = char* (*)(const char*);
/// Runs one of the host's vector functions; 0 where it has made a result. Where it has failed, the
/// result may hold one string: the reason, for the user to read.
using CallFunction = int (*)(UserFunctionInterface*, const char* functionName,
                             UserArgument* arguments, int count, UserArgument* result, void* extra);

/// The argument block of one script call, with the callbacks through which the result is made.
struct UserFunctionInterface {
  UserArgument args[maxUserArguments];
  std::uint64_t reserved0;
  std::int32_t argCount; ///< arguments that the script passed; those beyond are not to be read
  std::uint32_t reserved1;
  MakeStringResult makeStringResult;
  MakeRealResult makeRealResult;
  std::uint64_t reserved2[2];
  HostString hostString;     ///< a copy that the host owns: what a string slot is filled with
  CallFunction callFunction; ///< runs one of the host's vector functions
  std::uint64_t reserved3[10];
};

/// Where a bound read puts its elements. The host owns what `data` points at.
struct UserReturnData {
  void* data;
  UserDataType type;
  std::uint32_t count;
};

using UserFunctionHandler = int (*)(UserFunctionInterface*);

/// One script function of a plug-in; the records of a plug-in form a list.
struct UserFunctionDecl {
  char name[64]; ///< as scripts write it, always terminated
  std::uint32_t argTypes[maxUserArguments];
  std::uint32_t argMulti[maxUserArguments];
  std::uint16_t minArgs;
  std::uint16_t maxArgs;
  std::uint32_t reserved0;
  UserFunctionHandler handler;
  std::uint32_t resultType;
  std::uint32_t declVersion;
  std::uint32_t reserved1;
  std::uint32_t reserved2;
  const UserFunctionDecl* next;
  std::uint64_t reserved3;
};

/// What a plug-in reports of its own build, in the order of `sizes` in `udf_GetFunctionDecls`.
constexpr std::uint32_t userFunctionInterfaceSize = 2192;
constexpr std::uint32_t userFunctionDeclSize = 368;
constexpr std::uint32_t userFunctionInterfaceVersion = 2;

/// Name and type of the one symbol that a plug-in exports.
constexpr const char* userFunctionEntryName = "udf_GetFunctionDecls";
using UserFunctionEntry = std::uintptr_t (*)(void** firstDecl, std::uint8_t* flags,
                                             std::uint32_t* sizes);

static_assert(sizeof(void*) == 8, "the records are laid out for 64-bit pointers");

static_assert(sizeof(UserArgument) == 64);
static_assert(offsetof(UserArgument, data) == 8);
static_assert(offsetof(UserArgument, reference) == 16);
static_assert(offsetof(UserArgument, count) == 24);
static_assert(offsetof(UserArgument, type) == 28);

static_assert(sizeof(UserFunctionInterface) == userFunctionInterfaceSize);
static_assert(offsetof(UserFunctionInterface, args) == 0);
static_assert(offsetof(UserFunctionInterface, argCount) == 2056);
static_assert(offsetof(UserFunctionInterface, makeStringResult) == 2064);
static_assert(offsetof(UserFunctionInterface, makeRealResult) == 2072);
static_assert(offsetof(UserFunctionInterface, hostString) == 2096);
static_assert(offsetof(UserFunctionInterface, callFunction) == 2104);

static_assert(sizeof(UserReturnData) == 16);
static_assert(offsetof(UserReturnData, data) == 0);
static_assert(offsetof(UserReturnData, type) == 8);
static_assert(offsetof(UserReturnData, count) == 12);

static_assert(sizeof(UserFunctionDecl) == userFunctionDeclSize);
static_assert(offsetof(UserFunctionDecl, name) == 0);
static_assert(offsetof(UserFunctionDecl, argTypes) == 64);
static_assert(offsetof(UserFunctionDecl, argMulti) == 192);
static_assert(offsetof(UserFunctionDecl, minArgs) == 320);
static_assert(offsetof(UserFunctionDecl, maxArgs) == 322);
static_assert(offsetof(UserFunctionDecl, handler) == 328);
static_assert(offsetof(UserFunctionDecl, resultType) == 336);
static_assert(offsetof(UserFunctionDecl, declVersion) == 340);
static_assert(offsetof(UserFunctionDecl, next) == 352);
