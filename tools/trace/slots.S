// The slots: short pieces of code, one an entry of the call table, which the loader binds in place of the functions.
// Each counts its entry by calling kestTraceCount with its index and jumps to the function that this returns, with
// every register and the stack as the caller left them.

    .text
    .globl kestTraceSlots
    .hidden kestTraceSlots
    .hidden kestTraceCount

#if defined(__x86_64__)

    .balign 16
    .type kestTraceSlots, @function
kestTraceSlots:
    .set index, 0
    .rept 8192
    .balign 16
    endbr64
    pushq $index
    jmp count_and_continue
    .set index, index + 1
    .endr
    .size kestTraceSlots, . - kestTraceSlots

// What may carry arguments: six general registers, eight vector registers, rax (how many vector registers a variadic
// call uses), r10 (static chain).
    .balign 16
    .type count_and_continue, @function
count_and_continue:
    .cfi_startproc
    .cfi_def_cfa_offset 16
    pushq %rbp
    .cfi_def_cfa_offset 24
    .cfi_offset %rbp, -24
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    subq $200, %rsp
    movq %rax, (%rsp)
    movq %rdi, 8(%rsp)
    movq %rsi, 16(%rsp)
    movq %rdx, 24(%rsp)
    movq %rcx, 32(%rsp)
    movq %r8, 40(%rsp)
    movq %r9, 48(%rsp)
    movq %r10, 56(%rsp)
    movups %xmm0, 64(%rsp)
    movups %xmm1, 80(%rsp)
    movups %xmm2, 96(%rsp)
    movups %xmm3, 112(%rsp)
    movups %xmm4, 128(%rsp)
    movups %xmm5, 144(%rsp)
    movups %xmm6, 160(%rsp)
    movups %xmm7, 176(%rsp)
    movl 8(%rbp), %edi
    call kestTraceCount
    movq %rax, %r11
    movups 176(%rsp), %xmm7
    movups 160(%rsp), %xmm6
    movups 144(%rsp), %xmm5
    movups 128(%rsp), %xmm4
    movups 112(%rsp), %xmm3
    movups 96(%rsp), %xmm2
    movups 80(%rsp), %xmm1
    movups 64(%rsp), %xmm0
    movq 56(%rsp), %r10
    movq 48(%rsp), %r9
    movq 40(%rsp), %r8
    movq 32(%rsp), %rcx
    movq 24(%rsp), %rdx
    movq 16(%rsp), %rsi
    movq 8(%rsp), %rdi
    movq (%rsp), %rax
    leave
    .cfi_restore %rbp
    .cfi_def_cfa %rsp, 16
    addq $8, %rsp
    .cfi_def_cfa_offset 8
    jmp *%r11
    .cfi_endproc
    .size count_and_continue, . - count_and_continue

#elif defined(__aarch64__)

    .balign 16
    .type kestTraceSlots, %function
kestTraceSlots:
    .set index, 0
    .rept 8192
    hint #34 // bti c
    mov w16, #index
    b count_and_continue
    nop
    .set index, index + 1
    .endr
    .size kestTraceSlots, . - kestTraceSlots

// What may carry arguments: x0 to x7, q0 to q7, x8 (where a returned structure goes), x9 (static chain).
    .balign 16
    .type count_and_continue, %function
count_and_continue:
    .cfi_startproc
    stp x29, x30, [sp, #-224]!
    .cfi_def_cfa_offset 224
    .cfi_offset 29, -224
    .cfi_offset 30, -216
    mov x29, sp
    stp x0, x1, [sp, #16]
    stp x2, x3, [sp, #32]
    stp x4, x5, [sp, #48]
    stp x6, x7, [sp, #64]
    stp x8, x9, [sp, #80]
    stp q0, q1, [sp, #96]
    stp q2, q3, [sp, #128]
    stp q4, q5, [sp, #160]
    stp q6, q7, [sp, #192]
    mov w0, w16
    bl kestTraceCount
    mov x16, x0
    ldp q6, q7, [sp, #192]
    ldp q4, q5, [sp, #160]
    ldp q2, q3, [sp, #128]
    ldp q0, q1, [sp, #96]
    ldp x8, x9, [sp, #80]
    ldp x6, x7, [sp, #64]
    ldp x4, x5, [sp, #48]
    ldp x2, x3, [sp, #32]
    ldp x0, x1, [sp, #16]
    ldp x29, x30, [sp], #224
    .cfi_restore 29
    .cfi_restore 30
    .cfi_def_cfa_offset 0
    br x16
    .cfi_endproc
    .size count_and_continue, . - count_and_continue

#else
#error "kest-trace has slots for x86-64 and 64-bit Arm"
#endif

    .section .note.GNU-stack, "", %progbits
