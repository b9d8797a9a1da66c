/**
 * @file ModuleEnd.cpp
 * A part of every sample module: gives back what the C++ run-time library would leave behind each
 * time a module is freed.
 */
#ifdef __GNUC__

namespace __gnu_cxx {
void __freeres();  // NOLINT(bugprone-reserved-identifier): the name of the run-time library
}

namespace {

/** The run-time library keeps some 70 KB for exceptions in a shortage of memory. */
struct RuntimeReserve {
    ~RuntimeReserve() { __gnu_cxx::__freeres(); }
} reserve;

}  // namespace

#endif
