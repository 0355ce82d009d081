-- The whole schema with its keys, for a new SQL Server database without a host: the program's tables, those that it
-- reads and writes of a host, and the documents'. Nothing of it is for a host's own database, which brings its tables.
--
-- Create two databases of collation Modern_Spanish_CI_AS first, VELMORA and DOCVELMORA. With other names, replace
-- DOCVELMORA at the end: the documents' database is called "DOC" and the name of the first. Then, with a login that may
-- create tables in both:
--
--     sqlcmd -b -f 65001 -d VELMORA -i schema.sql
--     sqlcmd -b -f 65001 -d VELMORA -i indexes.sql

CREATE TABLE [dbo].[DPI] (
    [DPI_Id] [int] IDENTITY (1, 1) NOT NULL,
    [DPI_Tipo] [int] NULL,
    [DPI_Fecha] [datetime] NULL DEFAULT getdate(),
    [DPI_FAcepta] [datetime] NULL,
    [DPI_Orden] [int] NULL,
    [DPI_CodCliente] [int] NULL,
    [DPI_NomCliente] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [DPI_RefCli] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [DPI_PedCliente] [nvarchar] (60) COLLATE Modern_Spanish_CI_AS NULL,
    [DPI_FPedCliente] [datetime] NULL,
    [DPI_FechaEntrega] [datetime] NULL,
    [DPI_Obser] [nvarchar] (4000) COLLATE Modern_Spanish_CI_AS NULL,
    [DPI_Z] [float] NULL,
    [DPI_Pas] [float] NULL,
    [DPI_AC] [float] NULL,
    [DPI_Rodillo] [float] NULL,
    [DPI_Eje] [float] NULL,
    [DPI_Chav] [float] NULL,
    [DPI_Pri] [float] NULL,
    [DPI_DmPri] [float] NULL,
    [DPI_DmFon] [float] NULL,
    [DPI_DmExt] [float] NULL,
    [DPI_DmCub] [float] NULL,
    [DPI_Alt] [float] NULL,
    [DPI_AnchoTotal] [float] NULL,
    [DPI_Llanta] [float] NULL,
    [DPI_AnchoCubo] [float] NULL,
    [DPI_PDM_Tipo] [int] NULL,
    [DPI_PDM_Texto] [nvarchar] (60) COLLATE Modern_Spanish_CI_AS NULL,
    [DPI_PDM_b1] [float] NULL,
    [DPI_PDM_x] [float] NULL,
    [DPI_PDM_h1] [float] NULL,
    [DPI_IdParDisco] [int] NULL,
    [DPI_ArtDisco] [int] NULL,
    [DPI_DisCortDM] [float] NULL,
    [DPI_DisCortAN] [float] NULL,
    [DPI_DmInterno] [float] NULL,
    [DPI_DisCortPESO] [float] NULL,
    [DPI_DisPVE] [float] NULL,
    [DPI_DisImporte] [float] NULL,
    [DPI_CosteCorteDisco] [float] NULL,
    [DPI_FijoSierra] [float] NULL,
    [DPI_IdParCubo] [int] NULL,
    [DPI_ArtCubo] [int] NULL,
    [DPI_CubCortDM] [float] NULL,
    [DPI_CubCortAN] [float] NULL,
    [DPI_CuboDmInterno] [float] NULL,
    [DPI_CubCortPESO] [float] NULL,
    [DPI_CubPVE] [float] NULL,
    [DPI_CubImporte] [float] NULL,
    [DPI_ImpMat] [float] NULL,
    [DPI_ImpMO] [float] NULL,
    [DPI_ImpTS] [float] NULL,
    [DPI_ImpVA] [float] NULL,
    [DPI_ImpTP] [float] NULL,
    [DPI_Unidades] [float] NULL,
    [DPI_Importe] [float] NULL,
    [Dpi_Modulo] [float] NOT NULL DEFAULT 0,
    [DPI_HERRAMIENTA] [nvarchar] (15) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    [Dpi_Acopla] [int] NOT NULL DEFAULT 0,
    [DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '',
    [DPI_ProTex] [nvarchar] (35) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT ''
)
GO
ALTER TABLE [dbo].[DPI] WITH NOCHECK ADD CONSTRAINT [PK_DPI] PRIMARY KEY CLUSTERED ( [DPI_Id] )
GO

CREATE TABLE [dbo].[PARDPI] (
    [PARDPI_ID] [int] IDENTITY (1, 1) NOT NULL,
    [PARDPI_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [PARDPI_ART] [int] NULL,
    [PARDPI_HIERRO] [bit] NULL,
    [PARDPI_DISCO] [bit] NULL,
    [PARDPI_MATP] [nvarchar] (150) COLLATE Modern_Spanish_CI_AS NULL,
    [PARDPI_CRE] [bit] NOT NULL DEFAULT 0
)
GO
ALTER TABLE [dbo].[PARDPI] WITH NOCHECK ADD CONSTRAINT [PK_PARDPI] PRIMARY KEY CLUSTERED ( [PARDPI_ID] )
GO

CREATE TABLE [dbo].[PDM] (
    [PDM_ID] [int] IDENTITY (1, 1) NOT NULL,
    [PDM_Tipo] [int] NULL,
    [PDM_Titulo] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [PDM_Z] [float] NULL,
    [PDM_Paso] [float] NULL,
    [PDM_AC] [float] NULL,
    [PDM_Rodillo] [float] NULL,
    [PDM_b1] [float] NULL,
    [PDM_b2] [float] NULL,
    [PDM_X] [float] NULL,
    [PDM_H1] [float] NULL,
    [PDM_De] [float] NULL,
    [PDM_Dp] [float] NULL,
    [PDM_Df] [float] NULL,
    [PDM_Dm] [float] NULL,
    [PDM_D2] [float] NULL,
    [PDM_A] [float] NULL
)
GO
ALTER TABLE [dbo].[PDM] WITH NOCHECK ADD CONSTRAINT [PK_PDM] PRIMARY KEY CLUSTERED ( [PDM_ID] )
GO

CREATE TABLE [dbo].[ENG] (
    [ENG_Id] [numeric](18, 0) IDENTITY (1, 1) NOT NULL,
    [ENG_Tipo] [int] NOT NULL,
    [ENG_Modulo] [float] NOT NULL,
    [ENG_Z] [float] NOT NULL,
    [ENG_Paso] [float] NOT NULL,
    [ENG_Dp] [float] NOT NULL,
    [ENG_Di] [float] NOT NULL,
    [ENG_De] [float] NOT NULL,
    [ENG_Dm] [float] NOT NULL,
    [ENG_D1] [float] NOT NULL,
    [ENG_H] [float] NOT NULL,
    [ENG_A] [float] NOT NULL,
    [ENG_B] [float] NOT NULL,
    [ENG_C] [float] NOT NULL
) ON [PRIMARY]
GO
ALTER TABLE [dbo].[ENG] WITH NOCHECK ADD CONSTRAINT [PK_ENG] PRIMARY KEY CLUSTERED ( [ENG_Id] ) ON [PRIMARY]
GO

CREATE TABLE [dbo].[MoDpi] (
    [MoDpi_Id] [int] IDENTITY (1, 1) NOT NULL,
    [MoDpi_Dpi] [int] NULL,
    [MoDpi_Ope] [int] NULL,
    [MoDpi_Maq] [int] NULL,
    [MoDpi_Minutos] [float] NULL,
    [MoDpi_Pvp] [float] NULL,
    [MoDpi_Tiempo] [float] NULL,
    [MoDpi_Importe] [float] NULL
)
GO
ALTER TABLE [dbo].[MoDpi] WITH NOCHECK ADD CONSTRAINT [PK_MoDpi] PRIMARY KEY CLUSTERED ( [MoDpi_Id] )
GO

CREATE TABLE [dbo].[Calculos] (
    [Calculos_Tipo] [int] NULL,
    [Calculos_Valor1] [float] NULL,
    [Calculos_Valor2] [float] NULL,
    [Calculos_Constante] [float] NULL
)
GO

CREATE TABLE [dbo].[materiales] (
    [mat_id] [int] NOT NULL,
    [mat_pcs] [float] NULL
)
GO
ALTER TABLE [dbo].[materiales] WITH NOCHECK ADD CONSTRAINT [PK_materiales] PRIMARY KEY CLUSTERED ( [mat_id] )
GO

CREATE TABLE [dbo].[ART] (
    [ART_ID] [int] NOT NULL,
    [ART_COD] [nvarchar] (40) COLLATE Modern_Spanish_CI_AS NULL,
    [ART_DES] [nvarchar] (150) COLLATE Modern_Spanish_CI_AS NULL,
    [ART_For] [int] NULL,
    [ART_Fac] [float] NULL,
    [ART_Pco] [float] NULL,
    [ART_Pve] [float] NULL,
    [ART_Mat] [int] NULL,
    [ART_Corte] [int] NULL,
    [ART_Estado] [int] NULL
)
GO
ALTER TABLE [dbo].[ART] WITH NOCHECK ADD CONSTRAINT [PK_ART] PRIMARY KEY CLUSTERED ( [ART_ID] )
GO

CREATE TABLE [dbo].[CLI] (
    [CLI_ID] [int] NOT NULL,
    [CLI_COD] [int] NULL,
    [CLI_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [CLI_COMER] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [CLI_GtosFinan] [float] NULL,
    [CLI_Riesgo] [int] NULL,
    [CLI_ImpMaxRiesgo] [float] NULL
)
GO
ALTER TABLE [dbo].[CLI] WITH NOCHECK ADD CONSTRAINT [PK_CLI] PRIMARY KEY CLUSTERED ( [CLI_ID] )
GO

CREATE TABLE [dbo].[RSEC] (
    [RSEC_ID] [int] NOT NULL,
    [RSEC_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL
)
GO
ALTER TABLE [dbo].[RSEC] WITH NOCHECK ADD CONSTRAINT [PK_RSEC] PRIMARY KEY CLUSTERED ( [RSEC_ID] )
GO

CREATE TABLE [dbo].[MAQ] (
    [MAQ_ID] [int] NOT NULL,
    [MAQ_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [MAQ_SEC] [int] NULL
)
GO
ALTER TABLE [dbo].[MAQ] WITH NOCHECK ADD CONSTRAINT [PK_MAQ] PRIMARY KEY CLUSTERED ( [MAQ_ID] )
GO

CREATE TABLE [dbo].[OPE] (
    [OPE_ID] [int] NOT NULL,
    [OPE_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [OPE_VENTA] [float] NULL,
    [OPE_MAD] [int] NULL
)
GO
ALTER TABLE [dbo].[OPE] WITH NOCHECK ADD CONSTRAINT [PK_OPE] PRIMARY KEY CLUSTERED ( [OPE_ID] )
GO

CREATE TABLE [dbo].[OBM] (
    [OBM_OPE] [int] NULL,
    [OBM_MAQ] [int] NULL,
    [OBM_PTR] [float] NULL
)
GO

CREATE TABLE [dbo].[PRO] (
    [PRO_ID] [int] NOT NULL
)
GO
ALTER TABLE [dbo].[PRO] WITH NOCHECK ADD CONSTRAINT [PK_PRO] PRIMARY KEY CLUSTERED ( [PRO_ID] )
GO

CREATE TABLE [dbo].[CAC] (
    [CAC_ID] [int] NOT NULL,
    [CAC_FECHA] [datetime] NULL,
    [CAC_SERIE] [nvarchar] (10) COLLATE Modern_Spanish_CI_AS NULL,
    [CAC_NUMERO] [float] NULL,
    [CAC_IDPRO] [int] NULL
)
GO
ALTER TABLE [dbo].[CAC] WITH NOCHECK ADD CONSTRAINT [PK_CAC] PRIMARY KEY CLUSTERED ( [CAC_ID] )
GO

CREATE TABLE [dbo].[LAC] (
    [LAC_IDCAC] [int] NULL,
    [LAC_CODART] [nvarchar] (40) COLLATE Modern_Spanish_CI_AS NULL,
    [LAC_PRECIO] [float] NULL,
    [LAC_ANCHO] [float] NULL,
    [LAC_ESPESOR] [float] NULL,
    [LAC_DEXTERIOR] [float] NULL,
    [LAC_DINTERIOR] [float] NULL,
    [LAC_LARGO] [float] NULL
)
GO

CREATE TABLE [dbo].[REC] (
    [REC_IMPORTE] [float] NULL,
    [REC_SIT] [nvarchar] (1) COLLATE Modern_Spanish_CI_AS NULL,
    [REC_IdClPr] [int] NULL
)
GO

CREATE TABLE [dbo].[Cav] (
    [Cav_Id] [int] NOT NULL,
    [Cav_Situa] [int] NULL,
    [Cav_IdCli] [int] NULL
)
GO
ALTER TABLE [dbo].[Cav] WITH NOCHECK ADD CONSTRAINT [PK_Cav] PRIMARY KEY CLUSTERED ( [Cav_Id] )
GO

CREATE TABLE [dbo].[Lav] (
    [Lav_Idcav] [int] NULL,
    [Lav_Importe] [float] NULL
)
GO

CREATE TABLE [dbo].[ORDEN] (
    [ORDEN_ID] [int] IDENTITY (1, 1) NOT NULL,
    [ORDEN_NUM] [int] NULL,
    [ORDEN_SER] [nvarchar] (10) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_CLI] [int] NULL,
    [ORDEN_NOM] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_GF] [float] NULL,
    [ORDEN_OBS] [nvarchar] (150) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_UNI] [int] NULL,
    [ORDEN_REF] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_INI] [datetime] NULL,
    [ORDEN_ADE] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_ART] [nvarchar] (40) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_PLA] [datetime] NULL,
    [ORDEN_PRE] [float] NULL,
    [ORDEN_IdDPI] [int] NULL,
    [ORDEN_PED] [nvarchar] (60) COLLATE Modern_Spanish_CI_AS NULL,
    [ORDEN_DES] [nvarchar] (100) COLLATE Modern_Spanish_CI_AS NULL
)
GO
ALTER TABLE [dbo].[ORDEN] WITH NOCHECK ADD CONSTRAINT [PK_ORDEN] PRIMARY KEY CLUSTERED ( [ORDEN_ID] )
GO

CREATE TABLE [dbo].[OrdPiñones] (
    [Opi_Id] [int] IDENTITY (1, 1) NOT NULL,
    [Opi_OrdId] [float] NULL,
    [Opi_Pas] [float] NULL,
    [Opi_Die] [float] NULL,
    [Opi_Rod] [float] NULL,
    [Opi_Anca] [float] NULL,
    [Opi_Eje] [float] NULL,
    [Opi_Chav] [float] NULL,
    [Opi_Pri] [float] NULL,
    [Opi_DmPri] [float] NULL,
    [Opi_DmFon] [float] NULL,
    [Opi_DmExt] [float] NULL,
    [Opi_DmCub] [float] NULL,
    [Opi_Alt] [float] NULL,
    [Opi_Ancto] [float] NULL,
    [Opi_Llanta] [float] NULL,
    [Opi_Anccu] [float] NULL,
    [Opi_Disdm] [float] NULL,
    [Opi_DisGr] [float] NULL,
    [Opi_Cubdm] [float] NULL,
    [Opi_CubGr] [float] NULL,
    [Opi_PesoDis] [float] NULL,
    [Opi_PesoCub] [float] NULL
)
GO
ALTER TABLE [dbo].[OrdPiñones] WITH NOCHECK ADD CONSTRAINT [PK_OrdPiñones] PRIMARY KEY CLUSTERED ( [Opi_Id] )
GO

CREATE TABLE [dbo].[Mat] (
    [Mat_Ord] [int] NULL,
    [Mat_Ser] [nvarchar] (10) COLLATE Modern_Spanish_CI_AS NULL,
    [Mat_Art] [nvarchar] (40) COLLATE Modern_Spanish_CI_AS NULL,
    [Mat_Des] [nvarchar] (150) COLLATE Modern_Spanish_CI_AS NULL,
    [Mat_Pco] [float] NULL,
    [Mat_Pve] [float] NULL,
    [Mat_Can] [float] NULL,
    [Mat_Med] [nvarchar] (10) COLLATE Modern_Spanish_CI_AS NULL,
    [Mat_Tca] [int] NULL,
    [Mat_Anc] [float] NULL,
    [Mat_Esp] [float] NULL,
    [Mat_Dex] [float] NULL,
    [Mat_Din] [float] NULL,
    [Mat_Lar] [float] NULL,
    [Mat_Uni] [int] NULL,
    [Mat_For] [nvarchar] (10) COLLATE Modern_Spanish_CI_AS NULL,
    [Mat_FCA] [int] NULL,
    [Mat_Fac] [float] NULL,
    [Mat_Mat] [int] NULL,
    [Mat_Imp] [float] NULL,
    [Mat_Idp] [int] NULL,
    [MAT_DmCorte] [float] NULL,
    [MAT_CubCorte] [float] NULL,
    [MAT_UdCorte] [float] NULL,
    [MAT_LargoCorte] [float] NULL
)
GO

CREATE TABLE [dbo].[RUT] (
    [RUT_IdUsu] [int] NULL,
    [RUT_pos] [int] NULL,
    [RUT_IdOrden] [int] NULL,
    [RUT_NumOrden] [int] NULL,
    [RUT_Maq] [int] NULL,
    [RUT_Estimado] [float] NULL,
    [RUT_Mpos] [int] NULL
)
GO

-- The documents' database.
CREATE TABLE DOCVELMORA.dbo.dex (
    [Dex_Id] [int] IDENTITY (1, 1) NOT NULL,
    [Dex_IdExp] [int] NULL,
    [Dex_IdAct] [int] NULL,
    [Dex_Doc] [image] NULL,
    [Dex_Fic] [nvarchar] (260) COLLATE Modern_Spanish_CI_AS NULL,
    [Dex_FicDes] [nvarchar] (260) COLLATE Modern_Spanish_CI_AS NULL,
    [Dex_IdUsu] [int] NULL,
    [Dex_Estado] [int] NULL,
    [Dex_Importe] [float] NULL,
    [Dex_Fecha] [datetime] NULL
)
GO
ALTER TABLE DOCVELMORA.dbo.dex WITH NOCHECK ADD CONSTRAINT [PK_dex] PRIMARY KEY CLUSTERED ( [Dex_Id] )
GO
