' A session whose connection answers the statements of a file, and takes one proposal. The file, in UTF-16, holds for each
' statement a line "S" with its text, a line "C" with the names of the columns and a line "R" for each row, separated by
' tabs; a value is "-" for Null, or a letter for its type and its text: i and d numbers, t text, m moment. "I" is the row
' of the proposal that has been inserted: what the insert gave a value has that one.

Class CannedField
    Public Name
    Public Value
End Class

Class CannedFields
    Public Columns
    Public Row
    Public Property Get Count()
        Count = UBound(Columns) + 1
    End Property
    Public Default Property Get Item(index)
        Dim position, made
        position = -1
        If VarType(index) = vbString Then
            Dim i
            For i = 0 To UBound(Columns)
                If LCase(Columns(i)) = LCase(index) Then position = i
            Next
        Else
            position = index
        End If
        Set made = New CannedField
        made.Name = Columns(position)
        If IsArray(Row) Then made.Value = Row(position)
        Set Item = made
    End Property
End Class

Class CannedSet
    Public Columns
    Public Rows
    Public IsInserted
    Public Position
    Public Property Get EOF()
        EOF = Position > UBound(Rows)
    End Property
    Public Property Get Fields()
        Dim made
        Set made = New CannedFields
        made.Columns = Columns
        If Position <= UBound(Rows) Then made.Row = Rows(Position)
        Set Fields = made
    End Property
    Public Sub MoveNext()
        Position = Position + 1
    End Sub
End Class

' A number with a decimal point, whatever the separator of the locale.
Function CannedNumber(text)
    Dim point
    point = InStr(text, ".")
    If point = 0 Then
        CannedNumber = CLng(text)
    Else
        CannedNumber = CDbl(Replace(text, ".", "")) / 10 ^ (Len(text) - point)
    End If
End Function

Function CannedValue(text)
    Select Case Left(text, 1)
        Case "-"
            CannedValue = Null
        Case "i", "d"
            CannedValue = CannedNumber(Mid(text, 2))
        Case "m"
            CannedValue = DateSerial(Mid(text, 2, 4), Mid(text, 7, 2), Mid(text, 10, 2)) + _
                          TimeSerial(Mid(text, 13, 2), Mid(text, 16, 2), Mid(text, 19, 2))
        Case Else
            CannedValue = Mid(text, 2)
    End Select
End Function

Class CannedConnection
    Public Answers
    Public Inserted
    Public InTransaction

    Public Sub Load(path)
        Dim lines, line, text, parts, known, i, values
        Set Answers = CreateObject("Scripting.Dictionary")
        Set Inserted = CreateObject("Scripting.Dictionary")
        lines = Split(CreateObject("Scripting.FileSystemObject").OpenTextFile(path, 1, False, -1).ReadAll, vbLf)
        For Each line In lines
            text = Replace(line, vbCr, "")
            parts = Split(Mid(text, 3), vbTab)
            Select Case Left(text, 1)
                Case "S"
                    Set known = New CannedSet
                    known.Rows = Array()
                    Answers.Add Mid(text, 3), known
                Case "C"
                    known.Columns = parts
                Case "R", "I"
                    known.IsInserted = Left(text, 1) = "I"
                    values = known.Rows
                    ReDim Preserve values(UBound(values) + 1)
                    For i = 0 To UBound(parts)
                        parts(i) = CannedValue(parts(i))
                    Next
                    values(UBound(values)) = parts
                    known.Rows = values
            End Select
        Next
    End Sub

    Public Function Execute(sql, affected, options)
        Dim made
        If Not Answers.Exists(sql) Then Err.Raise 1000, "canned_session", "no answer: " & sql
        Set made = New CannedSet
        made.Columns = Answers(sql).Columns
        made.Rows = Answers(sql).Rows
        If Answers(sql).IsInserted Then made.Rows = WithInserted(made.Columns, made.Rows)
        made.Position = 0
        Set Execute = made
    End Function

    Private Function WithInserted(columns, rows)
        Dim row, i
        row = rows(0)
        For i = 0 To UBound(columns)
            If Inserted.Exists(LCase(columns(i))) Then row(i) = Inserted(LCase(columns(i)))
        Next
        WithInserted = Array(row)
    End Function

    Public Sub BeginTrans()
        InTransaction = True
    End Sub
    Public Sub CommitTrans()
        InTransaction = False
    End Sub
    Public Sub RollbackTrans()
        InTransaction = False
    End Sub
End Class

' A value as the form gives it: a text has the decimal comma.
Function GivenNumber(valor)
    If VarType(valor) = vbString Then
        GivenNumber = CannedNumber(Replace(valor, ",", "."))
    Else
        GivenNumber = valor
    End If
End Function

Class CannedCampos
    Public Values
    Public Sub Add(nombre, tipo, valor, decimales, resultado)
        Select Case tipo
            Case 6  ' an expression: the form writes Null alone
                Values(LCase(nombre)) = Null
            Case 1, 2
                Values(LCase(nombre)) = GivenNumber(valor)
            Case Else
                Values(LCase(nombre)) = valor
        End Select
    End Sub
End Class

Class CannedSession
    Public Connection
    Public Campos
    Public Tabla
    Public Modo
    Public Donde
    Public IdUsuario

    Public Sub Insertar(reason, missing, correcto)
        Set Connection.Inserted = Campos.Values
        Set Campos.Values = CreateObject("Scripting.Dictionary")
        correcto = Tabla = "DPI"
    End Sub
    Public Sub Actualizar(reason, correcto)
        reason = "nothing to update"
        correcto = False
    End Sub
    Public Function ComprobarConexion(given, reason, correcto)
        ComprobarConexion = given Is Connection
    End Function
    Public Function Parametros(name)
        Parametros = 4
    End Function
End Class

Function OpenSession()
    Dim made
    Set made = New CannedSession
    Set made.Connection = New CannedConnection
    made.Connection.Load WScript.Arguments(0)
    Set made.Campos = New CannedCampos
    Set made.Campos.Values = CreateObject("Scripting.Dictionary")
    made.IdUsuario = 7
    Set OpenSession = made
End Function
