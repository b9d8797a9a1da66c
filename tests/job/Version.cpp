// A library needs some code, even if only its file is read.
extern "C" void nothing() {
}
