' Tells of each playlist of this PC which of its references lead to nothing. The library drops such
' items when it reads a list, and tells of each in its log, VBLog.txt; so the log is turned on while
' this runs.
'
'   cscript //nologo FindMissing.vbs
Option Explicit

Const Switch = "Software\Norvo\Debug\VBDebugOut"
Const ToFile = 3

Dim shell, files, logFile, seen, before, manager, path, total
Set shell = CreateObject("WScript.Shell")
Set files = CreateObject("Scripting.FileSystemObject")
seen = 0
total = 0

before = RegistryValue("HKCU\" & Switch)
If before = "" Then before = RegistryValue("HKLM\" & Switch)
If before = "" Then before = 0
shell.RegWrite "HKCU\" & Switch, ToFile, "REG_DWORD"
FindMissing
PutBack
WScript.Echo total & " missing"
If total > 0 Then WScript.Quit 1

Sub FindMissing
  logFile = LogFolder() & "VBLog.txt"
  Set manager = CreateObject("NorvoPlayList.helperMan")
  If Not IsLogWritten() Then Fail "Nothing can be written to " & logFile
  If Not manager.GetAllPlaylists() Then Fail "The drives cannot be scanned"
  For Each path In manager.GetPLSList()
    ReadOne path
  Next
End Sub

Sub ReadOne(path)
  Dim list, line, isNamed, reference
  Set list = CreateObject("NorvoPlayList.PlayList")
  list.PlayListType = TypeOf(path)
  NewLines
  list.ReadPlayList path
  isNamed = False
  For Each line In NewLines()
    reference = MissingIn(line)
    If reference <> "" Then
      If Not isNamed Then WScript.Echo path
      isNamed = True
      WScript.Echo "  " & reference
      total = total + 1
    End If
  Next
End Sub

' The reference that a line of the log calls missing; empty for any other line.
Function MissingIn(line)
  Const Mark = "File Not Found: "
  MissingIn = ""
  If Left(line, 20) <> "NVERR_FILE_NOT_FOUND" Then Exit Function
  MissingIn = Mid(line, InStr(line, Mark) + Len(Mark))
End Function

' The lines of the log since the last look at it. It is text of the system's 8-bit page.
Function NewLines()
  Dim file, text
  text = ""
  If files.FileExists(logFile) Then
    Set file = files.OpenTextFile(logFile)
    If Not file.AtEndOfStream Then text = file.ReadAll()
    file.Close
  End If
  NewLines = Split(Mid(text, seen + 1), vbCrLf)
  seen = Len(text)
End Function

' An entry that is asked for its size before it has an address writes a line to the log.
Function IsLogWritten()
  Dim length, size
  NewLines
  length = seen
  size = CreateObject("NorvoPlayList.Entry").FileSize
  NewLines
  IsLogWritten = seen > length
End Function

' The folder of the log: the product's, else that of the DLL.
Function LogFolder()
  Dim identifier
  LogFolder = RegistryValue("HKCU\SOFTWARE\Norvo\Migration\ProductFolder")
  If LogFolder = "" Then LogFolder = RegistryValue("HKLM\SOFTWARE\Norvo\Migration\ProductFolder")
  If LogFolder = "" Then
    identifier = RegistryValue("HKCR\NorvoPlayList.PlayList\CLSID\")
    LogFolder = files.GetParentFolderName( _
        RegistryValue("HKCR\CLSID\" & identifier & "\InprocServer32\"))
  End If
  If Right(LogFolder, 1) <> "\" Then LogFolder = LogFolder & "\"
End Function

' Empty when there is none.
Function RegistryValue(name)
  On Error Resume Next
  RegistryValue = ""
  RegistryValue = shell.RegRead(name)
End Function

Sub PutBack
  shell.RegWrite "HKCU\" & Switch, before, "REG_DWORD"
End Sub

Sub Fail(text)
  PutBack
  WScript.Echo text & "."
  WScript.Quit 2
End Sub

' The playlist's type by its first lines.
Function TypeOf(path)
  If LCase(Right(path, 4)) = ".pls" Then
    TypeOf = manager.ParsePLSHeader(path)
  Else
    TypeOf = manager.ParseM3UHeader(path)
  End If
End Function
