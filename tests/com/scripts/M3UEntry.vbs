Plan 48
CheckFormatEntry "M3UEntry"
Done
