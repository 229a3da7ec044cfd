// What 64-bit Windows' own pyconfig.h says, as far as the host's header files ask: only for the
// compile check of windows_check.py, never for a real build.
#pragma once

#include <io.h>
#include <stdio.h>

// The real one defines MS_WIN64 for Visual C++ only, and takes pointers to have 32 bits without it.
#ifndef MS_WIN64
#error "MS_WIN64 must be defined before Python.h when MinGW compiles for 64-bit Windows"
#endif

#define MS_WIN32
#define MS_WINDOWS
#define NT_THREADS
#define WITH_THREAD
#define COMPILER "[gcc]"
#define PLATFORM "win32"

// Functions and data come out of a DLL: the address of a type object is no constant there.
#define Py_ENABLE_SHARED 1
#define HAVE_DECLSPEC_DLL

#define SIZEOF_SHORT 2
#define SIZEOF_INT 4
#define SIZEOF_LONG 4
#define SIZEOF_LONG_LONG 8
#define SIZEOF_VOID_P 8
#define SIZEOF_SIZE_T 8
#define SIZEOF_TIME_T 8
#define SIZEOF_OFF_T 4
#define SIZEOF_FPOS_T 8
#define SIZEOF_PID_T 4
#define SIZEOF_WCHAR_T 2
#define SIZEOF_FLOAT 4
#define SIZEOF_DOUBLE 8
#define ALIGNOF_SIZE_T 8
#define ALIGNOF_MAX_ALIGN_T 8
#define LONG_BIT 32
#define WORD_BIT 32

#define STDC_HEADERS 1
#define HAVE_COPYSIGN 1
#define HAVE_DECL_ISINF 1
#define HAVE_DECL_ISNAN 1
#define HAVE_DECL_ISFINITE 1
#define HAVE_DYNAMIC_LOADING
#define HAVE_ERRNO_H 1
#define HAVE_HYPOT
#define HAVE_LARGEFILE_SUPPORT
#define HAVE_LONG_LONG 1
#define HAVE_ROUND 1
#define HAVE_STDDEF_H 1
#define HAVE_SYS_STAT_H 1
#define HAVE_SYS_TYPES_H 1
#define HAVE_WCHAR_H 1
#define WITH_DOC_STRINGS 1
#define WITH_PYMALLOC 1
