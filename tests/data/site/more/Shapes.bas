Attribute VB_Name = "ShapesToo"
Public Sub Report()
    MsgBox "Shapes: <" & gCount & "> & ""more"""
End Sub
