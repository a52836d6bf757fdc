-- The school database on SQL Server.
--
-- A table is marked "by position" when the module inserts into it without naming columns: the order
-- of its columns is a format. A column that the module only fills there is marked "free name"; one
-- that it finds by name wherever it stands, "free place". One marked "host" only a host needs.
-- No unique or foreign key beyond the primary keys: real schools hold doubled and orphaned rows, and
-- the module heals them itself. A flag is a bit, which takes the -1 that the module writes as 1; a
-- date is a text.

-- The register: a pending subject of a student.
CREATE TABLE AlumnoPte_MatDet (  -- by position
  IDAlumnoPte_MatDet int NOT NULL,
  CodAlumno int DEFAULT 0,
  CodMatDet int DEFAULT 0,
  Orden tinyint DEFAULT 0,
  CodCursoPte tinyint DEFAULT 0,  -- free name
  CONSTRAINT PK_AlumnoPte_MatDet PRIMARY KEY (IDAlumnoPte_MatDet)
);

-- The grades of a pending subject in an ordinary evaluation.
CREATE TABLE EvaluacionPte (  -- by position
  IDEvaluacionPte int NOT NULL,
  CodAlumnoPte_MatDet int DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0,
  Evaluado bit DEFAULT 0,  -- free place
  CodNota int DEFAULT 0,  -- free place
  CodNotaActitud int DEFAULT 0,  -- free place
  CodNotaObservacion int DEFAULT 0,  -- free place
  CodNotaConcepto int DEFAULT 0,  -- free place
  CodNotaProcedimiento int DEFAULT 0,  -- free place
  UltimaEvaluada bit DEFAULT 0,  -- free place
  CONSTRAINT PK_EvaluacionPte PRIMARY KEY (IDEvaluacionPte)
);

-- The grades of a pending subject in a final evaluation.
CREATE TABLE EvaluacionActaPte (  -- by position
  IDEvaluacionActaPte int NOT NULL,
  CodAlumnoPte_MatDet int DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0,
  Evaluado bit DEFAULT 0,  -- free place
  CodNota int DEFAULT 0,  -- free place
  CodNotaObservacion int DEFAULT 0,  -- free place
  RE_AC_DIV tinyint DEFAULT 0,  -- free place
  UltimaEvaluada bit DEFAULT 0,  -- free place
  CONSTRAINT PK_EvaluacionActaPte PRIMARY KEY (IDEvaluacionActaPte)
);

-- The students on the pending register of a section.
CREATE TABLE Seccion_AlumnoPte (  -- by position
  CodSeccion int DEFAULT 0,
  CodAlumno int DEFAULT 0,
  Posicion int DEFAULT 0,  -- free name
  Situacion int DEFAULT 0  -- free name
);

-- The teacher who grades a pending subject, 0 for none.
CREATE TABLE Profesor_Pte (  -- by position
  CodProfesor int DEFAULT 0,
  CodMatDet int DEFAULT 0
);

-- A user who has a grade form open on an evaluation. The module looks a publication up by its
-- CodSeccion, but the row that it writes holds no section: the name stands at the constant 4 and
-- not at the teacher, since a teacher's number would match the section of the same number by
-- chance, and a publication be taken for that section's.
CREATE TABLE PublicacionPte (  -- by position
  IDPublicacionPte int NOT NULL,
  CodProfesor smallint DEFAULT 0,  -- free name
  CodPropietario smallint DEFAULT 0,
  CodSeccion int DEFAULT 0,  -- free place
  CodNumEvaluacion int DEFAULT 0,
  CONSTRAINT PK_PublicacionPte PRIMARY KEY (IDPublicacionPte)
);

-- A subject that a grade form holds in an evaluation. It has no key of its own.
CREATE TABLE BloqueoPte (  -- by position
  CodProfesor smallint DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0,
  CodMatDet int DEFAULT 0,
  CodUsuario smallint DEFAULT 0,  -- free name
  CodPublicacion int DEFAULT 0
);

-- A subject of a student in an evaluation, in the main grade book.
CREATE TABLE Alumno_MateriaDetalles (  -- by position
  IDAlumno_MateriaDetalles int NOT NULL,
  CodAlumno int DEFAULT 0,
  CodMateriaDetalles int DEFAULT 0,
  CodMateriaDetallesAsociada int DEFAULT 0,
  CodNumEvaluacion smallint DEFAULT 0,
  Orden tinyint DEFAULT 0,
  Cursada bit DEFAULT 0,  -- free name
  Convocatoria int DEFAULT 0,  -- free name
  CONSTRAINT PK_Alumno_MateriaDetalles PRIMARY KEY (IDAlumno_MateriaDetalles)
);

-- The grades of a row of Alumno_MateriaDetalles.
CREATE TABLE Evaluacion (  -- by position
  IDEvaluacion int NOT NULL,
  CodAlumno_MateriaDetalles int DEFAULT 0,
  CodNumEvaluacion smallint DEFAULT 0,
  Evaluado int DEFAULT 0,  -- free place
  CodNota int DEFAULT 0,  -- free place
  CodNotaActitud int DEFAULT 0,  -- free place
  CodNotaObservacion int DEFAULT 0,  -- free place
  CodNotaConcepto int DEFAULT 0,  -- free place
  CodNotaProcedimiento int DEFAULT 0,  -- free place
  CodNotaR int DEFAULT 0,  -- free place
  CodNotaActitudR int DEFAULT 0,  -- free place
  CodNotaObservacionR int DEFAULT 0,  -- free place
  CodNotaConceptoR int DEFAULT 0,  -- free place
  CodNotaProcedimientoR int DEFAULT 0,  -- free place
  Recuperacion int DEFAULT 0,  -- free place
  Faltas int DEFAULT 0,  -- free name
  CONSTRAINT PK_Evaluacion PRIMARY KEY (IDEvaluacion)
);

-- The presence of a student in an evaluation.
CREATE TABLE Alumno_NumEvaluacion (  -- by position
  IDAlumno_NumEvaluacion int NOT NULL,
  CodAlumno int DEFAULT 0,
  CodNumEvaluacion smallint DEFAULT 0,
  FaltasJustificadas int DEFAULT 0,  -- free name
  FaltasInjustificadas int DEFAULT 0,  -- free name
  Retrasos int DEFAULT 0,  -- free name
  CodNotaObservacion int DEFAULT 0,  -- free name
  Promociona int DEFAULT 0,  -- free name
  Repite int DEFAULT 0,  -- free name
  CONSTRAINT PK_Alumno_NumEvaluacion PRIMARY KEY (IDAlumno_NumEvaluacion)
);

CREATE TABLE Alumno (
  IDAlumno int NOT NULL,
  Nombre nvarchar(255),
  Apellido_1 nvarchar(255),
  Apellido_2 nvarchar(255),
  CodSeccion int DEFAULT 0,
  OrdenSeccion int DEFAULT 0,
  Anticipado bit DEFAULT 0,
  FechaBaja varchar(10),
  CONSTRAINT PK_Alumno PRIMARY KEY (IDAlumno)
);

-- The students of a section, in the list of the host.
CREATE TABLE Seccion_Alumno (
  CodSeccion int DEFAULT 0,  -- host
  CodAlumno int DEFAULT 0
);

CREATE TABLE Seccion (
  IDSeccion int NOT NULL,
  Descripcion nvarchar(255),
  CodCurso int DEFAULT 0,
  CodTutor int DEFAULT 0,
  CodModelo int DEFAULT 0,
  Seguimiento bit DEFAULT 0,
  AcumularObjetivos bit DEFAULT 0,
  CONSTRAINT PK_Seccion PRIMARY KEY (IDSeccion)
);

CREATE TABLE Curso (
  IDCurso int NOT NULL,
  Descripcion nvarchar(255),
  CodTipoEnsenanza int DEFAULT 0,
  Orden int DEFAULT 0,
  Promocion smallint DEFAULT 0,
  RE_AC bit DEFAULT 0,
  CONSTRAINT PK_Curso PRIMARY KEY (IDCurso)
);

-- A subject, or an objective of the subject in CodMateriaAsociada.
CREATE TABLE Materia (
  IDMateria int NOT NULL,
  Nombre nvarchar(255),
  Optativa bit DEFAULT 0,
  CodMateriaAsociada int DEFAULT 0,
  CodTipoEnsenanza int DEFAULT 0,
  CodTipoMateria int DEFAULT 0,
  CONSTRAINT PK_Materia PRIMARY KEY (IDMateria)
);

-- A subject as taught in one section.
CREATE TABLE MateriaDetalles (
  IDMateriaDetalles int NOT NULL,
  CodMateria int DEFAULT 0,
  CodSeccion int DEFAULT 0,
  CodPersonal int DEFAULT 0,
  CodPersonalAsociado int DEFAULT 0,
  CodTipoMateria int DEFAULT 0,
  CONSTRAINT PK_MateriaDetalles PRIMARY KEY (IDMateriaDetalles)
);

CREATE TABLE NumEvaluacion (
  IDNumEvaluacion int NOT NULL,
  Descripcion nvarchar(255),
  Final bit DEFAULT 0,
  Extraordinaria bit DEFAULT 0,
  Orden int DEFAULT 0,
  CONSTRAINT PK_NumEvaluacion PRIMARY KEY (IDNumEvaluacion)
);

-- The evaluations that a section has.
CREATE TABLE Seccion_NumEvaluacion (
  CodSeccion int DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0
);

-- A kind of teaching.
CREATE TABLE TipoEnsenanza (
  IDTipoEnsenanza int NOT NULL,
  Nombre nvarchar(255),
  Orden int DEFAULT 0,
  CONSTRAINT PK_TipoEnsenanza PRIMARY KEY (IDTipoEnsenanza)
);

-- The kinds of teaching that a centre gives.
CREATE TABLE Centro_TipoEnsenanza (
  CodTipoEnsenanza int DEFAULT 0,
  CodCentro int DEFAULT 0
);

-- A member of staff.
CREATE TABLE Personal (
  IDPersonal int NOT NULL,
  Apellido1 nvarchar(255),
  Apellido2 nvarchar(255),
  Nombre nvarchar(255),
  CodUsuario int DEFAULT 0,
  CONSTRAINT PK_Personal PRIMARY KEY (IDPersonal)
);

-- Nombre and CodPerfil are for the sign-in of a host; the module reads neither.
CREATE TABLE Usuario (
  IDUsuario int NOT NULL,
  CodPadre int DEFAULT 0,
  AdminSistema bit DEFAULT 0,
  Nombre nvarchar(255),  -- host
  CodPerfil int DEFAULT 0,  -- host
  CONSTRAINT PK_Usuario PRIMARY KEY (IDUsuario)
);

CREATE TABLE Modelo (
  IDModelo int NOT NULL,
  CodSistemaCalificacion int DEFAULT 0,
  CONSTRAINT PK_Modelo PRIMARY KEY (IDModelo)
);

-- A marking system.
CREATE TABLE SistemaCalificacion (
  IDSistemaCalificacion int NOT NULL,
  CodTipoEnsenanza int DEFAULT 0,
  Recuperaciones bit DEFAULT 0,
  CONSTRAINT PK_SistemaCalificacion PRIMARY KEY (IDSistemaCalificacion)
);

CREATE TABLE TipoMateria (
  IDTipoMateria int NOT NULL,
  Nombre nvarchar(255),
  CodEspecificarTipoMateria smallint DEFAULT 0,
  CodSistemaCalificacion int DEFAULT 0,
  CONSTRAINT PK_TipoMateria PRIMARY KEY (IDTipoMateria)
);

-- A kind of grade, that is, a column of the grade grid.
CREATE TABLE TipoNota (
  IDTipoNota int NOT NULL,
  Nombre nvarchar(255),
  Orden int DEFAULT 0,
  Abreviatura bit DEFAULT 0,
  Materia bit DEFAULT 0,
  Observacion bit DEFAULT 0,
  Evaluacion bit DEFAULT 0,
  CodTipoMateria int DEFAULT 0,
  CONSTRAINT PK_TipoNota PRIMARY KEY (IDTipoNota)
);

-- A grade that can be given. A scope of 0 is any.
CREATE TABLE Nota (
  IDNota int NOT NULL,
  DescripcionCorta nvarchar(255),
  Aprobado bit DEFAULT 0,
  NotaExcepcional bit DEFAULT 0,
  CodModelo int DEFAULT 0,
  CodCurso int DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0,
  CodMateria int DEFAULT 0,
  CodPersonal int DEFAULT 0,
  CodTipoNota int DEFAULT 0,
  CONSTRAINT PK_Nota PRIMARY KEY (IDNota)
);

-- The days, as yyyy/mm/dd, between which grades may be entered.
CREATE TABLE FechaNotas (
  FechaInicio varchar(10),
  FechaFin varchar(10),
  CodSeccion int DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0
);

-- The grades of a row of Alumno_MateriaDetalles in the minutes.
CREATE TABLE EvaluacionActa (
  CodAlumno_MateriaDetalles int DEFAULT 0,
  CodNumEvaluacion int DEFAULT 0,
  Evaluado bit DEFAULT 0,
  CodNota int DEFAULT 0,
  CodNotaObservacion int DEFAULT 0
);

-- For the statements of the module: without them the load of a class reads whole tables.
CREATE INDEX Idx_AlumnoPte_MatDet_CodAlumno ON AlumnoPte_MatDet (CodAlumno, Orden);
CREATE INDEX Idx_AlumnoPte_MatDet_CodMatDet ON AlumnoPte_MatDet (CodMatDet, CodAlumno);
CREATE INDEX Idx_EvaluacionPte_CodAlumnoPte_MatDet ON EvaluacionPte (CodAlumnoPte_MatDet, CodNumEvaluacion);
CREATE INDEX Idx_EvaluacionActaPte_CodAlumnoPte_MatDet ON EvaluacionActaPte (CodAlumnoPte_MatDet, CodNumEvaluacion);
CREATE INDEX Idx_Seccion_AlumnoPte_CodSeccion ON Seccion_AlumnoPte (CodSeccion, CodAlumno);
CREATE INDEX Idx_Seccion_AlumnoPte_CodAlumno ON Seccion_AlumnoPte (CodAlumno, CodSeccion);
CREATE INDEX Idx_Profesor_Pte_CodMatDet ON Profesor_Pte (CodMatDet, CodProfesor);
CREATE INDEX Idx_Profesor_Pte_CodProfesor ON Profesor_Pte (CodProfesor, CodMatDet);
CREATE INDEX Idx_PublicacionPte_CodPropietario ON PublicacionPte (CodPropietario);
CREATE INDEX Idx_BloqueoPte_CodMatDet ON BloqueoPte (CodMatDet, CodNumEvaluacion);
CREATE INDEX Idx_BloqueoPte_CodProfesor ON BloqueoPte (CodProfesor);
CREATE INDEX Idx_BloqueoPte_CodPublicacion ON BloqueoPte (CodPublicacion);
CREATE INDEX Idx_Alumno_MateriaDetalles_CodAlumno ON Alumno_MateriaDetalles (CodAlumno, CodNumEvaluacion);
CREATE INDEX Idx_Evaluacion_CodAlumno_MateriaDetalles ON Evaluacion (CodAlumno_MateriaDetalles, CodNumEvaluacion);
CREATE INDEX Idx_Alumno_NumEvaluacion_CodAlumno ON Alumno_NumEvaluacion (CodAlumno, CodNumEvaluacion);
CREATE INDEX Idx_Alumno_CodSeccion ON Alumno (CodSeccion, OrdenSeccion);
CREATE INDEX Idx_Seccion_Alumno_CodAlumno ON Seccion_Alumno (CodAlumno);
CREATE INDEX Idx_Seccion_CodCurso ON Seccion (CodCurso);
CREATE INDEX Idx_Seccion_CodTutor ON Seccion (CodTutor);
CREATE INDEX Idx_Curso_CodTipoEnsenanza ON Curso (CodTipoEnsenanza, Orden);
CREATE INDEX Idx_Materia_CodTipoEnsenanza ON Materia (CodTipoEnsenanza);
CREATE INDEX Idx_MateriaDetalles_CodSeccion ON MateriaDetalles (CodSeccion, CodMateria);
CREATE INDEX Idx_MateriaDetalles_CodMateria ON MateriaDetalles (CodMateria, CodSeccion);
CREATE INDEX Idx_Seccion_NumEvaluacion_CodSeccion ON Seccion_NumEvaluacion (CodSeccion, CodNumEvaluacion);
CREATE INDEX Idx_Centro_TipoEnsenanza_CodTipoEnsenanza ON Centro_TipoEnsenanza (CodTipoEnsenanza, CodCentro);
CREATE INDEX Idx_Centro_TipoEnsenanza_CodCentro ON Centro_TipoEnsenanza (CodCentro, CodTipoEnsenanza);
CREATE INDEX Idx_Personal_CodUsuario ON Personal (CodUsuario);
CREATE INDEX Idx_SistemaCalificacion_CodTipoEnsenanza ON SistemaCalificacion (CodTipoEnsenanza);
CREATE INDEX Idx_TipoMateria_CodSistemaCalificacion ON TipoMateria (CodSistemaCalificacion);
CREATE INDEX Idx_TipoNota_CodTipoMateria ON TipoNota (CodTipoMateria);
CREATE INDEX Idx_Nota_CodTipoNota ON Nota (CodTipoNota);
CREATE INDEX Idx_FechaNotas_CodSeccion ON FechaNotas (CodSeccion, CodNumEvaluacion);
CREATE INDEX Idx_EvaluacionActa_CodAlumno_MateriaDetalles ON EvaluacionActa (CodAlumno_MateriaDetalles, CodNumEvaluacion);
