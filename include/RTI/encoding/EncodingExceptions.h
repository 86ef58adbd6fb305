// What the encoding helpers throw: EncoderException, which stands with the other exceptions of the interface.
#ifndef RTI_EncodingExceptions_h
#define RTI_EncodingExceptions_h

#include <RTI/Exception.h>

#endif
