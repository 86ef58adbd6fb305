// Compiler-dependent settings shared by all headers of the interface.
#ifndef RTI_SpecificConfig_h
#define RTI_SpecificConfig_h

// Marks what the library exports. A program never defines these itself.
#if defined(__GNUC__)
#define RTI_EXPORT __attribute__((visibility("default")))
#else
#define RTI_EXPORT
#endif

// Exported by the logical time library (libfedtime1516e), which a program may replace by its own.
#define RTI_EXPORT_FEDTIME RTI_EXPORT

// The interface hands out std::auto_ptr, which the language has deprecated since. Declarations that name it
// stand between these two, so that including a header warns in no dialect.
#if defined(__GNUC__)
#define RTI_AUTO_PTR_BEGIN \
   _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wdeprecated-declarations\"")
#define RTI_AUTO_PTR_END _Pragma("GCC diagnostic pop")
#else
#define RTI_AUTO_PTR_BEGIN
#define RTI_AUTO_PTR_END
#endif

#endif
