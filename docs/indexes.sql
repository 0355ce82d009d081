-- Indexes that VELMORA's questions want, for the administrator of a host's SQL Server. They change no answer, only how
-- long it takes. Run what is missing, one statement at a time; an embedded database gets them by itself.

-- The history of like proposals, and the tracking list.
CREATE INDEX [IX_DPI_Dentado] ON [dbo].[DPI] (DPI_Tipo, DPI_Z, DPI_Pas, DPI_AC, DPI_Rodillo, DPI_Fecha)
CREATE INDEX [IX_DPI_Tipo] ON [dbo].[DPI] (DPI_Tipo, DPI_Fecha)
CREATE INDEX [IX_DPI_Fecha] ON [dbo].[DPI] (DPI_Fecha)
CREATE INDEX [IX_DPI_FAcepta] ON [dbo].[DPI] (DPI_FAcepta, DPI_Fecha)
CREATE INDEX [IX_DPI_Cliente] ON [dbo].[DPI] (DPI_CodCliente, DPI_Fecha)
CREATE INDEX [IX_DPI_RefCli] ON [dbo].[DPI] (DPI_RefCli)

-- The labour lines of a proposal.
CREATE INDEX [IX_MoDpi_Dpi] ON [dbo].[MoDpi] (MoDpi_Dpi)

-- The operators of a machine (tables of the host).
CREATE INDEX [IX_OPE_Maquina] ON [dbo].[OPE] (OPE_MAD)
CREATE INDEX [IX_OBM_Maquina] ON [dbo].[OBM] (OBM_MAQ)
