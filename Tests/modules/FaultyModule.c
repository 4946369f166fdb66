/* One source for the modules that a host has to refuse. FAULT says what is wrong with it; 0 is a
   sound one. It knows the records by their offsets alone, so that it does not share a mistake with
   the headers. */
#include <stdint.h>
#include <string.h>

enum {
  FAULT_NONE,
  FAULT_BLOCK_SIZE,
  FAULT_RECORD_SIZE,
  FAULT_VERSION,
  FAULT_NO_LIST,
  FAULT_LOOP,
  FAULT_ENDLESS,
  FAULT_LONG_NAME,
  FAULT_EMPTY_NAME,
  FAULT_STRANGE_NAME,
  FAULT_TWIN,
  FAULT_COUNTS,
  FAULT_MANY_ARGUMENTS,
  FAULT_NO_HANDLER,
  FAULT_TYPE_CODE,
  FAULT_NO_SYMBOL
};

enum { RECORD_SIZE = 368, RECORD_COUNT = FAULT == FAULT_ENDLESS ? 5000 : 2 };

static uint64_t records[RECORD_COUNT][RECORD_SIZE / 8];

static int handler(void* call) {
  (void)call;
  return 0;
}

static void put(unsigned char* record, size_t offset, const void* value, size_t size) {
  memcpy(record + offset, value, size);
}

static void fill(int index) {
  unsigned char* record = (unsigned char*)records[index];
  char name[64] = "FunctionA";
  uint32_t type = FAULT == FAULT_TYPE_CODE ? 2 : 1;
  uint16_t least = FAULT == FAULT_COUNTS ? 2 : 1;
  uint16_t most = FAULT == FAULT_MANY_ARGUMENTS ? 33 : 1;
  uint32_t result = 12;
  uint32_t version = 1;
  int (*function)(void*) = FAULT == FAULT_NO_HANDLER ? NULL : handler;
  const void* next = index + 1 < RECORD_COUNT ? (const void*)records[index + 1] : NULL;

  if (FAULT == FAULT_LONG_NAME)
    memset(name, 'N', sizeof name);
  if (FAULT == FAULT_EMPTY_NAME)
    name[0] = 0;
  if (FAULT == FAULT_STRANGE_NAME)
    strcpy(name, "bad name\n\xff");
  if (FAULT == FAULT_LOOP && !next)
    next = records[0];
  if (FAULT != FAULT_LONG_NAME && FAULT != FAULT_EMPTY_NAME && FAULT != FAULT_TWIN && index > 0) {
    name[8] = (char)('A' + index % 26);
  }
  if (FAULT == FAULT_ENDLESS) {
    name[9] = (char)('A' + index / 26 % 26);
    name[10] = (char)('A' + index / 676);
  }
  put(record, 0, name, sizeof name);
  put(record, 64, &type, sizeof type);
  put(record, 320, &least, sizeof least);
  put(record, 322, &most, sizeof most);
  put(record, 328, &function, sizeof function);
  put(record, 336, &result, sizeof result);
  put(record, 340, &version, sizeof version);
  put(record, 352, &next, sizeof next);
}

#define NAME_OF_ENTRY udf_GetFunctionDecls
#if FAULT == 15
#undef NAME_OF_ENTRY
#define NAME_OF_ENTRY udf_OtherName
#endif

uintptr_t NAME_OF_ENTRY(void** first, uint8_t* flags, uint32_t* sizes);
uintptr_t NAME_OF_ENTRY(void** first, uint8_t* flags, uint32_t* sizes) {
  int index;
  for (index = 0; index < RECORD_COUNT; ++index)
    fill(index);
  *flags = 0;
  sizes[0] = FAULT == FAULT_BLOCK_SIZE ? 2184 : 2192;
  sizes[1] = FAULT == FAULT_RECORD_SIZE ? 360 : 368;
  sizes[2] = FAULT == FAULT_VERSION ? 3 : 2;
  *first = FAULT == FAULT_NO_LIST ? NULL : (void*)records;
  return (uintptr_t)*first;
}
