/* Reads a module's declaration records as a program of another maker would: from the layout alone.
   It includes none of the system's headers, so that a change of the layout cannot go unseen.

   Prints one line per record, "NAME minArgs maxArgs type,type,… resultType", in list order. Ends 1
   with a message where something is not as agreed. */

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

int main(int argc, char** argv) {
  if (argc != 2)
    return fail("usage: RecordReader MODULE");
  void* module = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  if (!module)
    return fail(dlerror());
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
