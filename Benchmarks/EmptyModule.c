/* What loading a library costs when there is nothing in it. */
int emptyModuleEntry(void);
int emptyModuleEntry(void) {
  return 0;
}
