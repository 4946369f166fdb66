#include "Frame/GenTabSheet.h"

int GenTabSheet::helpContextId() {
  return -1;
}
