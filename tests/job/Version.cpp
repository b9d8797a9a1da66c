// A library needs some code, even one that is only looked at.
extern "C" void nothing() {
}
