/* Reads the records that host and module share as a program of another maker would: from the layout
   alone. It includes none of the system's headers, so that a change of the layout cannot go unseen.

   RecordReader MODULE prints one line per declaration record, "NAME minArgs maxArgs type,type,…
   resultType", in list order. RecordReader --examples LIBRARY prints the fields of the examples
   that RecordMaker makes, writes some, and has the library print what it sees of them. Ends 1 with
   a message where something is not as agreed. */

#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

enum { guard = 0xA5 };

static int fail(const char* what) {
  fprintf(stderr, "RecordReader: %s\n", what);
  return 1;
}

static uint16_t u16(const unsigned char* at) {
  return (uint16_t)(at[0] | at[1] << 8);
}

static uint32_t u32(const unsigned char* at) {
  return (uint32_t)u16(at) | (uint32_t)u16(at + 2) << 16;
}

static uint64_t u64(const unsigned char* at) {
  return (uint64_t)u32(at) | (uint64_t)u32(at + 4) << 32;
}

static int allZero(const unsigned char* at, int size) {
  for (int i = 0; i < size; ++i)
    if (at[i])
      return 0;
  return 1;
}

static int readDeclarations(void* module) {
  uintptr_t (*entry)(void**, uint8_t*, uint32_t*);
  *(void**)&entry = dlsym(module, "udf_GetFunctionDecls");
  if (!entry)
    return fail("no udf_GetFunctionDecls");

  /* Guard bytes on both sides show a write that is wider than agreed. */
  unsigned char flags[3];
  uint32_t sizes[5];
  void* first[3];
  memset(flags, guard, sizeof flags);
  memset(sizes, guard, sizeof sizes);
  memset(first, guard, sizeof first);
  const uintptr_t returned = entry(&first[1], &flags[1], &sizes[1]);

  unsigned char expected[8];
  memset(expected, guard, sizeof expected);
  if (flags[0] != guard || flags[1] != 0 || flags[2] != guard)
    return fail("flags: not one byte of 0");
  if (memcmp(&sizes[0], expected, 4) != 0 || memcmp(&sizes[4], expected, 4) != 0)
    return fail("sizes: more than three words written");
  if (memcmp(&first[0], expected, 8) != 0 || memcmp(&first[2], expected, 8) != 0)
    return fail("firstDecl: more than a pointer written");
  if (sizes[1] != 2192 || sizes[2] != 368 || sizes[3] != 2)
    return fail("sizes or version differ");
  if ((uintptr_t)first[1] != returned || !returned)
    return fail("the value returned is not the head of the list");

  int count = 0;
  for (const unsigned char* record = first[1]; record;
       record = (const unsigned char*)(uintptr_t)u64(record + 352)) {
    if (++count > 1000)
      return fail("the list has no end");
    const char* name = (const char*)record;
    if (!memchr(name, 0, 64))
      return fail("a name is not terminated");
    const unsigned minArgs = u16(record + 320);
    const unsigned maxArgs = u16(record + 322);
    if (maxArgs > 32 || minArgs > maxArgs || !u64(record + 328))
      return fail("argument counts or handler of a record");
    if (!allZero(record + 192, 128) || !allZero(record + 324, 4) || u32(record + 340) != 1 ||
        !allZero(record + 344, 8) || !allZero(record + 360, 8) ||
        !allZero(record + 64 + 4 * maxArgs, (int)(128 - 4 * maxArgs)))
      return fail("a reserved field, the version or an argument beyond maxArgs");
    printf("%s %u %u ", name, minArgs, maxArgs);
    for (unsigned i = 0; i < maxArgs; ++i)
      printf("%s%u", i ? "," : "", (unsigned)u32(record + 64 + 4 * i));
    printf(" %u\n", (unsigned)u32(record + 336));
  }
  return 0;
}

static int32_t i32(const unsigned char* at) {
  return (int32_t)u32(at);
}

static double real(const unsigned char* at) {
  const uint64_t bits = u64(at);
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

static unsigned char* pointer(const unsigned char* at) {
  return (unsigned char*)(uintptr_t)u64(at);
}

static void putI32(unsigned char* at, int32_t value) {
  for (int i = 0; i < 4; ++i)
    at[i] = (unsigned char)((uint32_t)value >> 8 * i);
}

typedef const char* (*TextOfField)(const void*);

static void printAnalysis(const unsigned char* block, TextOfField text) {
  const unsigned char* parameter = pointer(block);
  for (int i = 0; i < i32(block + 8); ++i, parameter += 32) {
    const int32_t type = i32(parameter + 28);
    printf("%s type %d set %d ", text(parameter + 8), type, parameter[24]);
    if (type == 0)
      printf("%g\n", real(parameter));
    else if (type == 4)
      printf("%s\n", text(parameter + 16));
    else
      printf("%d\n", type == 2 || type == 3 ? parameter[0] : i32(parameter));
  }
  printf("action %d; selected %d %d %d; defined %d %d %d\n", i32(block + 12), block[16], block[17],
         block[22], block[23], block[24], block[29]);
}

static int printGraphs(const unsigned char* data, TextOfField text) {
  const unsigned char* vector = pointer(data);
  const int32_t count = i32(data + 8);
  if (u64(vector - 8) != (uint64_t)count)
    return fail("the count of the vectors does not stand before them");
  for (int i = 0; i < count; ++i, vector += 32)
    printf("%s %d %d %d\n", text(vector), i32(vector + 8), i32(vector + 12), vector[24]);
  printf("graphs %d points %lld %d x %g %g divisions %lld chars %s\n", i32(data + 16),
         (long long)u64(data + 24), data[32], real(data + 40), real(data + 48),
         (long long)u64(data + 56), (const char*)pointer(data + 64));
  return 0;
}

static void printList(const unsigned char* list, TextOfField text) {
  for (const unsigned char* field = pointer(list); field != pointer(list + 8); field += 8)
    printf(" [%s]", text(field));
  printf("\n");
}

static int printSymbolFile(const unsigned char* request, const unsigned char* result,
                           TextOfField text) {
  if (pointer(request + 56) != request)
    return fail("the parent of a symbol-file request");
  printf("mode %d filter %s start %s flag %d filters", i32(request), text(request + 8),
         text(request + 40), request[48]);
  printList(request + 16, text);
  printf("chosen");
  printList(result, text);
  return 0;
}

static void printLaplace(const unsigned char* record) {
  const unsigned char* first = pointer(record + 8);
  printf("%s: %g %g of %d, %g of %d, status %d spare %d\n", (const char*)pointer(record),
         real(first), real(first + 8), i32(record + 16), real(pointer(record + 24)),
         i32(record + 32), i32(record + 36), record[40]);
}

static void write(unsigned char* block, unsigned char* laplace) {
  unsigned char* parameters = pointer(block);
  const double value = 0.125;
  memcpy(parameters, &value, sizeof value);
  putI32(parameters + 32, 300);
  parameters[2 * 32 + 24] = 1;
  putI32(block + 12, 0);
  block[16] = 1;
  block[22] = 2;
  block[24] = 3;
  putI32(laplace + 16, 11);
  putI32(laplace + 32, 12);
  putI32(laplace + 36, 0);
}

static int readExamples(void* library) {
  void* (*recordNamed)(const char*);
  TextOfField text;
  void (*printWritten)(void*, void*);
  *(void**)&recordNamed = dlsym(library, "recordNamed");
  *(void**)&text = dlsym(library, "textOfField");
  *(void**)&printWritten = dlsym(library, "printWritten");
  if (!recordNamed || !text || !printWritten)
    return fail("the library makes no examples");
  unsigned char* analysis = recordNamed("analysis");
  unsigned char* laplace = recordNamed("laplace");
  printAnalysis(analysis, text);
  if (printGraphs(recordNamed("graphs"), text) != 0 ||
      printSymbolFile(recordNamed("symbolFileRequest"), recordNamed("symbolFileResult"), text) != 0)
    return 1;
  printLaplace(laplace);
  write(analysis, laplace);
  printWritten(analysis, laplace);
  return 0;
}

int main(int argc, char** argv) {
  const int readsExamples = argc == 3 && strcmp(argv[1], "--examples") == 0;
  if (argc != 2 && !readsExamples)
    return fail("usage: RecordReader MODULE, or RecordReader --examples LIBRARY");
  void* library = dlopen(argv[argc - 1], RTLD_NOW | RTLD_LOCAL);
  if (!library)
    return fail(dlerror());
  return readsExamples ? readExamples(library) : readDeclarations(library);
}
