Plan 48
CheckFormatEntry "PlsEntry"
Done
