' What all tests in VBScript share. A statement that raises is skipped, and the next check tells of
' it, so that nothing ends a script without a word.
Option Explicit
On Error Resume Next

Dim checks
checks = 0

Sub Plan(count)
  WScript.Echo "1.." & count
End Sub

Sub Done
  If Err.Number <> 0 Then Report False, "the end", ErrorText, "no error"
  WScript.Echo "done"
End Sub

Sub Report(passed, what, got, wanted)
  checks = checks + 1
  If passed Then
    WScript.Echo "ok " & checks & " - " & what
  Else
    WScript.Echo "not ok " & checks & " - " & what & ": got " & got & ", wanted " & wanted
  End If
  Err.Clear
End Sub

Function ErrorText
  ErrorText = "error " & Err.Number & " (" & Err.Description & ") of " & Err.Source
End Function

' A value with its type.
Function Shown(value)
  Select Case VarType(value)
    Case 0: Shown = "Empty"
    Case 1: Shown = "Null"
    Case 2: Shown = "Integer " & value
    Case 3: Shown = "Long " & value
    Case 5: Shown = "Double " & value
    Case 7: Shown = "Date " & value
    Case 8: Shown = "String '" & value & "'"
    Case 9: Shown = "Object"
    Case 11: Shown = "Boolean " & CInt(value)
    Case Else Shown = "type " & VarType(value)
  End Select
End Function

' Value and type are the same.
Sub Equal(got, wanted, what)
  If Err.Number <> 0 Then
    Report False, what, ErrorText, "no error before it"
  ElseIf IsObject(got) Then
    Report False, what, "an object", Shown(wanted)
  Else
    Report Shown(got) = Shown(wanted), what, Shown(got), Shown(wanted)
  End If
End Sub

' The very same object; Nothing too.
Sub Same(got, wanted, what)
  If Err.Number <> 0 Then
    Report False, what, ErrorText, "no error before it"
  Else
    Report got Is wanted, what, "another object", "the same object"
  End If
End Sub

' The statement before has raised nothing.
Sub Quiet(what)
  Report Err.Number = 0, what, ErrorText, "no error"
End Sub

' The statement before has raised an error of the library, with its own description.
Sub Raised(number, what)
  Dim wanted
  wanted = "error " & number & " (" & DescriptionOf(number) & ") of NorvoPlayList"
  Report ErrorText = wanted, what, ErrorText, wanted
End Sub

' The statement before has raised an error that the library has no words of its own for.
Sub Failed(number, what)
  Report Err.Number = number, what, ErrorText, "error " & number
End Sub

' The statement before named a member that cannot be used so; the host says so, not the library.
Sub Refused(what)
  Failed 438, what
End Sub

Function DescriptionOf(number)
  Select Case number
    Case 5: DescriptionOf = "Invalid procedure call or argument"
    Case 6: DescriptionOf = "Overflow"
    Case 13: DescriptionOf = "Type mismatch"
    Case 93: DescriptionOf = "Invalid pattern string"
    Case 94: DescriptionOf = "Invalid use of Null"
    Case 438: DescriptionOf = "Object doesn't support this property or method"
    Case 450: DescriptionOf = "Wrong number of arguments or invalid property assignment"
  End Select
End Function

Function Made(className)
  Set Made = CreateObject("NorvoPlayList." & className)
End Function

' Greek, Chinese, and a character outside the first 65536. Out of a file: not every host has ChrW.
Function ManyScripts
  Const FOR_READING = 1
  Const WIDE = -1
  With CreateObject("Scripting.FileSystemObject")
    With .OpenTextFile("C:\Norvo\ManyScripts.txt", FOR_READING, False, WIDE)
      ManyScripts = .ReadLine
      .Close
    End With
  End With
End Function
