Attribute VB_Name = "modSample"
' Sample module: a little of everything the listing shows.
Option Explicit

Private Const MAX_ITEMS As Integer = 100
Public Type tItem
    Name As String
    Count As Long
End Type

Public Enum eColour
    ecRed = 1
    ecGreen
End Enum

Private mItems(1 To MAX_ITEMS) As tItem

' Adds up the counts of every item whose name is set.
' Blank names are skipped.
Public Function TotalCount() As Long
    Dim i As Integer, total As Long
    For i = 1 To MAX_ITEMS
        If Len(mItems(i).Name) > 0 Then
            Select Case mItems(i).Count
                Case Is < 0
                    Debug.Print "negative count at "; i
                Case 0
                    ' nothing to add
                Case Else
                    total = total + mItems(i).Count
            End Select
        End If
    Next i
    TotalCount = total
End Function

Public Sub Fill(ByVal seed As Long)
    Dim i As Integer, j As Integer
    On Error GoTo Failed
    For i = 1 To MAX_ITEMS
        For j = 1 To 3
            mItems(i).Count = mItems(i).Count + seed * j
        Next j, i
    With mItems(1)
        .Name = "first"
        .Count = .Count _
               + 1
    End With
    Do While seed > 0
        seed = seed \ 2
    Loop
#If DEBUG_BUILD Then
    Debug.Print "filled"
#Else
    seed = 0
#End If
    Exit Sub
Failed:
    MsgBox "Fill failed: " & Err.Description, vbExclamation
    Resume Next
End Sub
