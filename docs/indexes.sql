-- Indexes that VELMORA's questions want, for the administrator of a host's SQL Server. They change no answer, only how
-- long it takes. Run what is missing, one statement at a time; an embedded database gets them by itself.

-- Like proposals, the tracking list.
CREATE INDEX [IX_DPI_Fecha] ON [dbo].[DPI] (DPI_Fecha)
CREATE INDEX [IX_DPI_Toothing] ON [dbo].[DPI] (DPI_Z, DPI_Pas, DPI_AC, DPI_Rodillo, DPI_Tipo, DPI_Fecha)
CREATE INDEX [IX_DPI_Type] ON [dbo].[DPI] (DPI_Tipo, DPI_Fecha)
CREATE INDEX [IX_DPI_TypeKey] ON [dbo].[DPI] (DPI_Tipo)
CREATE INDEX [IX_DPI_Accepted] ON [dbo].[DPI] (DPI_FAcepta, DPI_Fecha)
CREATE INDEX [IX_DPI_CustomerDate] ON [dbo].[DPI] (DPI_CodCliente, DPI_Fecha)

-- The labour lines of a proposal, the operators of a machine.
CREATE INDEX [IX_MoDpi_Dpi] ON [dbo].[MoDpi] (MoDpi_Dpi)
CREATE INDEX [IX_OPE_Machine] ON [dbo].[OPE] (OPE_MAD)
CREATE INDEX [IX_OBM_Machine] ON [dbo].[OBM] (OBM_MAQ)

-- Values of double sprockets.
CREATE INDEX [IX_PDM_Chain] ON [dbo].[PDM] (PDM_Tipo, PDM_Z)

-- Purchase prices.
CREATE INDEX [IX_LAC_Article] ON [dbo].[LAC] (LAC_CODART)

-- The risk of a customer.
CREATE INDEX [IX_REC_Customer] ON [dbo].[REC] (REC_IdClPr)
CREATE INDEX [IX_Cav_Customer] ON [dbo].[Cav] (Cav_IdCli)
CREATE INDEX [IX_Lav_Note] ON [dbo].[Lav] (Lav_Idcav)

-- Numbers of work orders, places in the route.
CREATE INDEX [IX_ORDEN_Number] ON [dbo].[ORDEN] (ORDEN_NUM)
CREATE INDEX [IX_RUT_Machine] ON [dbo].[RUT] (RUT_Maq, RUT_Mpos)
