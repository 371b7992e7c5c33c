/* The bytes of engine.exe, which the build brings to PLINTH_STUB_FILE. */
    .section .rodata
    .balign 16
    .globl plinthStubBegin
plinthStubBegin:
    .incbin PLINTH_STUB_FILE
    .globl plinthStubEnd
plinthStubEnd:
    .section .note.GNU-stack,"",%progbits
