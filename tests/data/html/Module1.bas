Attribute VB_Name = "Module1"
Option Explicit
' Greets the user <loudly> & often
Public Sub Main()
10  Dim s As String
    s = "<b>" & "café"
    If s <> "" Then _
        MsgBox s
End Sub

Private Function Twice(ByVal a As Long, _
                       ByVal b As Long) As Long
    Twice = (a + b) * 2
End Function
