Attribute VB_Name = "Shapes"
Option Explicit
Public gCount As Long
Public Const MaxShapes As Long = 10

Public Function AddShape(ByVal size As Long) As Long
    ' a comment with < and & and "quotes"
    gCount = gCount + 1
    AddShape = size * MaxShapes
End Function
