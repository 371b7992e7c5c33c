/* The bytes of engine.exe, which the build brings to PLINTH_STUB_FILE, and of two files of the source tree. */
    .section .rodata

    .macro embedded name, file
    .balign 16
    .globl \name\()Begin
\name\()Begin:
    .incbin "\file"
    .globl \name\()End
\name\()End:
    .endm

    embedded plinthStub, PLINTH_STUB_FILE
    embedded plinthIcon, PLINTH_ICON_FILE
    embedded plinthEnglish, PLINTH_ENGLISH_FILE

    .section .note.GNU-stack,"",%progbits
