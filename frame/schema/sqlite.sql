-- The school database on SQLite.
--
-- A table is marked "by position" when the module inserts into it without naming columns: the order
-- of its columns is a format. A column that the module only fills there is marked "free name"; one
-- that it finds by name wherever it stands, "free place". One marked "host" only a host needs.
-- No unique or foreign key beyond the primary keys: real schools hold doubled and orphaned rows, and
-- the module heals them itself. A flag is 0 or -1; a date is a text.

-- The register: a pending subject of a student.
CREATE TABLE AlumnoPte_MatDet (  -- by position
  IDAlumnoPte_MatDet INTEGER PRIMARY KEY,
  CodAlumno INTEGER DEFAULT 0,
  CodMatDet INTEGER DEFAULT 0,
  Orden INTEGER DEFAULT 0,
  CodCursoPte INTEGER DEFAULT 0  -- free name
);

-- The grades of a pending subject in an ordinary evaluation.
CREATE TABLE EvaluacionPte (  -- by position
  IDEvaluacionPte INTEGER PRIMARY KEY,
  CodAlumnoPte_MatDet INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  Evaluado INTEGER DEFAULT 0,  -- free place
  CodNota INTEGER DEFAULT 0,  -- free place
  CodNotaActitud INTEGER DEFAULT 0,  -- free place
  CodNotaObservacion INTEGER DEFAULT 0,  -- free place
  CodNotaConcepto INTEGER DEFAULT 0,  -- free place
  CodNotaProcedimiento INTEGER DEFAULT 0,  -- free place
  UltimaEvaluada INTEGER DEFAULT 0  -- free place
);

-- The grades of a pending subject in a final evaluation.
CREATE TABLE EvaluacionActaPte (  -- by position
  IDEvaluacionActaPte INTEGER PRIMARY KEY,
  CodAlumnoPte_MatDet INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  Evaluado INTEGER DEFAULT 0,  -- free place
  CodNota INTEGER DEFAULT 0,  -- free place
  CodNotaObservacion INTEGER DEFAULT 0,  -- free place
  RE_AC_DIV INTEGER DEFAULT 0,  -- free place
  UltimaEvaluada INTEGER DEFAULT 0  -- free place
);

-- The students on the pending register of a section.
CREATE TABLE Seccion_AlumnoPte (  -- by position
  CodSeccion INTEGER DEFAULT 0,
  CodAlumno INTEGER DEFAULT 0,
  Posicion INTEGER DEFAULT 0,  -- free name
  Situacion INTEGER DEFAULT 0  -- free name
);

-- The teacher who grades a pending subject, 0 for none.
CREATE TABLE Profesor_Pte (  -- by position
  CodProfesor INTEGER DEFAULT 0,
  CodMatDet INTEGER DEFAULT 0
);

-- A user who has a grade form open on an evaluation. The module looks a publication up by its
-- CodSeccion, but the row that it writes holds no section: the name stands at the constant 4 and
-- not at the teacher, since a teacher's number would match the section of the same number by
-- chance, and a publication be taken for that section's.
CREATE TABLE PublicacionPte (  -- by position
  IDPublicacionPte INTEGER PRIMARY KEY,
  CodProfesor INTEGER DEFAULT 0,  -- free name
  CodPropietario INTEGER DEFAULT 0,
  CodSeccion INTEGER DEFAULT 0,  -- free place
  CodNumEvaluacion INTEGER DEFAULT 0
);

-- A subject that a grade form holds in an evaluation. It has no key of its own.
CREATE TABLE BloqueoPte (  -- by position
  CodProfesor INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  CodMatDet INTEGER DEFAULT 0,
  CodUsuario INTEGER DEFAULT 0,  -- free name
  CodPublicacion INTEGER DEFAULT 0
);

-- A subject of a student in an evaluation, in the main grade book.
CREATE TABLE Alumno_MateriaDetalles (  -- by position
  IDAlumno_MateriaDetalles INTEGER PRIMARY KEY,
  CodAlumno INTEGER DEFAULT 0,
  CodMateriaDetalles INTEGER DEFAULT 0,
  CodMateriaDetallesAsociada INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  Orden INTEGER DEFAULT 0,
  Cursada INTEGER DEFAULT 0,  -- free name
  Convocatoria INTEGER DEFAULT 0  -- free name
);

-- The grades of a row of Alumno_MateriaDetalles.
CREATE TABLE Evaluacion (  -- by position
  IDEvaluacion INTEGER PRIMARY KEY,
  CodAlumno_MateriaDetalles INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  Evaluado INTEGER DEFAULT 0,  -- free place
  CodNota INTEGER DEFAULT 0,  -- free place
  CodNotaActitud INTEGER DEFAULT 0,  -- free place
  CodNotaObservacion INTEGER DEFAULT 0,  -- free place
  CodNotaConcepto INTEGER DEFAULT 0,  -- free place
  CodNotaProcedimiento INTEGER DEFAULT 0,  -- free place
  CodNotaR INTEGER DEFAULT 0,  -- free place
  CodNotaActitudR INTEGER DEFAULT 0,  -- free place
  CodNotaObservacionR INTEGER DEFAULT 0,  -- free place
  CodNotaConceptoR INTEGER DEFAULT 0,  -- free place
  CodNotaProcedimientoR INTEGER DEFAULT 0,  -- free place
  Recuperacion INTEGER DEFAULT 0,  -- free place
  Faltas INTEGER DEFAULT 0  -- free name
);

-- The presence of a student in an evaluation.
CREATE TABLE Alumno_NumEvaluacion (  -- by position
  IDAlumno_NumEvaluacion INTEGER PRIMARY KEY,
  CodAlumno INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  FaltasJustificadas INTEGER DEFAULT 0,  -- free name
  FaltasInjustificadas INTEGER DEFAULT 0,  -- free name
  Retrasos INTEGER DEFAULT 0,  -- free name
  CodNotaObservacion INTEGER DEFAULT 0,  -- free name
  Promociona INTEGER DEFAULT 0,  -- free name
  Repite INTEGER DEFAULT 0  -- free name
);

CREATE TABLE Alumno (
  IDAlumno INTEGER PRIMARY KEY,
  Nombre TEXT,
  Apellido_1 TEXT,
  Apellido_2 TEXT,
  CodSeccion INTEGER DEFAULT 0,
  OrdenSeccion INTEGER DEFAULT 0,
  Anticipado INTEGER DEFAULT 0,
  FechaBaja TEXT
);

-- The students of a section, in the list of the host.
CREATE TABLE Seccion_Alumno (
  CodSeccion INTEGER DEFAULT 0,  -- host
  CodAlumno INTEGER DEFAULT 0
);

CREATE TABLE Seccion (
  IDSeccion INTEGER PRIMARY KEY,
  Descripcion TEXT,
  CodCurso INTEGER DEFAULT 0,
  CodTutor INTEGER DEFAULT 0,
  CodModelo INTEGER DEFAULT 0,
  Seguimiento INTEGER DEFAULT 0,
  AcumularObjetivos INTEGER DEFAULT 0
);

CREATE TABLE Curso (
  IDCurso INTEGER PRIMARY KEY,
  Descripcion TEXT,
  CodTipoEnsenanza INTEGER DEFAULT 0,
  Orden INTEGER DEFAULT 0,
  Promocion INTEGER DEFAULT 0,
  RE_AC INTEGER DEFAULT 0
);

-- A subject, or an objective of the subject in CodMateriaAsociada.
CREATE TABLE Materia (
  IDMateria INTEGER PRIMARY KEY,
  Nombre TEXT,
  Optativa INTEGER DEFAULT 0,
  CodMateriaAsociada INTEGER DEFAULT 0,
  CodTipoEnsenanza INTEGER DEFAULT 0,
  CodTipoMateria INTEGER DEFAULT 0
);

-- A subject as taught in one section.
CREATE TABLE MateriaDetalles (
  IDMateriaDetalles INTEGER PRIMARY KEY,
  CodMateria INTEGER DEFAULT 0,
  CodSeccion INTEGER DEFAULT 0,
  CodPersonal INTEGER DEFAULT 0,
  CodPersonalAsociado INTEGER DEFAULT 0,
  CodTipoMateria INTEGER DEFAULT 0
);

CREATE TABLE NumEvaluacion (
  IDNumEvaluacion INTEGER PRIMARY KEY,
  Descripcion TEXT,
  Final INTEGER DEFAULT 0,
  Extraordinaria INTEGER DEFAULT 0,
  Orden INTEGER DEFAULT 0
);

-- The evaluations that a section has.
CREATE TABLE Seccion_NumEvaluacion (
  CodSeccion INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0
);

-- A kind of teaching.
CREATE TABLE TipoEnsenanza (
  IDTipoEnsenanza INTEGER PRIMARY KEY,
  Nombre TEXT,
  Orden INTEGER DEFAULT 0
);

-- The kinds of teaching that a centre gives.
CREATE TABLE Centro_TipoEnsenanza (
  CodTipoEnsenanza INTEGER DEFAULT 0,
  CodCentro INTEGER DEFAULT 0
);

-- A member of staff.
CREATE TABLE Personal (
  IDPersonal INTEGER PRIMARY KEY,
  Apellido1 TEXT,
  Apellido2 TEXT,
  Nombre TEXT,
  CodUsuario INTEGER DEFAULT 0
);

-- Nombre and CodPerfil are for the sign-in of a host; the module reads neither.
CREATE TABLE Usuario (
  IDUsuario INTEGER PRIMARY KEY,
  CodPadre INTEGER DEFAULT 0,
  AdminSistema INTEGER DEFAULT 0,
  Nombre TEXT,  -- host
  CodPerfil INTEGER DEFAULT 0  -- host
);

CREATE TABLE Modelo (
  IDModelo INTEGER PRIMARY KEY,
  CodSistemaCalificacion INTEGER DEFAULT 0
);

-- A marking system.
CREATE TABLE SistemaCalificacion (
  IDSistemaCalificacion INTEGER PRIMARY KEY,
  CodTipoEnsenanza INTEGER DEFAULT 0,
  Recuperaciones INTEGER DEFAULT 0
);

CREATE TABLE TipoMateria (
  IDTipoMateria INTEGER PRIMARY KEY,
  Nombre TEXT,
  CodEspecificarTipoMateria INTEGER DEFAULT 0,
  CodSistemaCalificacion INTEGER DEFAULT 0
);

-- A kind of grade, that is, a column of the grade grid.
CREATE TABLE TipoNota (
  IDTipoNota INTEGER PRIMARY KEY,
  Nombre TEXT,
  Orden INTEGER DEFAULT 0,
  Abreviatura INTEGER DEFAULT 0,
  Materia INTEGER DEFAULT 0,
  Observacion INTEGER DEFAULT 0,
  Evaluacion INTEGER DEFAULT 0,
  CodTipoMateria INTEGER DEFAULT 0
);

-- A grade that can be given. A scope of 0 is any.
CREATE TABLE Nota (
  IDNota INTEGER PRIMARY KEY,
  DescripcionCorta TEXT,
  Aprobado INTEGER DEFAULT 0,
  NotaExcepcional INTEGER DEFAULT 0,
  CodModelo INTEGER DEFAULT 0,
  CodCurso INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  CodMateria INTEGER DEFAULT 0,
  CodPersonal INTEGER DEFAULT 0,
  CodTipoNota INTEGER DEFAULT 0
);

-- The days, as yyyy/mm/dd, between which grades may be entered.
CREATE TABLE FechaNotas (
  FechaInicio TEXT,
  FechaFin TEXT,
  CodSeccion INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0
);

-- The grades of a row of Alumno_MateriaDetalles in the minutes.
CREATE TABLE EvaluacionActa (
  CodAlumno_MateriaDetalles INTEGER DEFAULT 0,
  CodNumEvaluacion INTEGER DEFAULT 0,
  Evaluado INTEGER DEFAULT 0,
  CodNota INTEGER DEFAULT 0,
  CodNotaObservacion INTEGER DEFAULT 0
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
