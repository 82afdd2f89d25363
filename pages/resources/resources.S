// Puts the compiled resource file (RUVEX_RESOURCE_FILE) into the module's read-only data.
// Types are written with %: in the assembler of 32-bit ARM, @ begins a comment.

    .section .rodata.ruvexResources, "a", %progbits
    .balign 8

    .globl ruvexResourcesBegin
    .type ruvexResourcesBegin, %object
ruvexResourcesBegin:
    .incbin RUVEX_RESOURCE_FILE
    .size ruvexResourcesBegin, . - ruvexResourcesBegin

    .globl ruvexResourcesEnd
    .type ruvexResourcesEnd, %object
    .size ruvexResourcesEnd, 1
ruvexResourcesEnd:
    .byte 0    // so that the end, too, lies within the section

    .section .note.GNU-stack, "", %progbits
