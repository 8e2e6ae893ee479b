# Instructions that no compiler emits: the operands of those that are spelled by bytes are ULEB, or SLEB where it says so.
rare:
  .cfi_startproc
  nop
  .cfi_def_cfa ebp, 8
  .cfi_offset ebp, -8
  nop
  .cfi_offset ebx, -12
  nop
  .cfi_escape 0x05, 6, 4          # offset_extended
  nop
  .cfi_escape 0x11, 7, 0x7c       # offset_extended_sf
  nop
  .cfi_escape 0x2f, 6, 2          # GNU_negative_offset_extended
  nop
  .cfi_remember_state
  .cfi_escape 0x14, 3, 4          # val_offset
  nop
  .cfi_escape 0x15, 3, 0x7e       # val_offset_sf
  nop
  .cfi_register ebx, esi
  nop
  .cfi_remember_state
  .cfi_undefined ebx
  .cfi_escape 0x16, 7, 1, 0x31    # val_expression
  .cfi_escape 0x10, 6, 1, 0x31    # expression
  nop
  .cfi_restore_state
  .cfi_same_value esi
  nop
  .cfi_restore ebx
  nop
  .cfi_restore_state
  .cfi_escape 0x06, 6             # restore_extended
  .skip 100
  .cfi_escape 0x12, 4, 0x7c       # def_cfa_sf
  .skip 300
  .cfi_escape 0x13, 0x7a          # def_cfa_offset_sf
  .skip 70000
  .cfi_def_cfa_register ebp
  .cfi_remember_state
  .cfi_escape 0x2e, 0x90, 1       # GNU_args_size, 144: no part of the state
  nop
  .cfi_restore_state
  nop
  .cfi_escape 0x0f, 2, 0x75, 8    # def_cfa_expression
  nop
  .cfi_endproc
