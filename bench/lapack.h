#pragma once

/// \file  The routines of BLAS and LAPACK that stand against ours.

extern "C" {
void dgemm_(const char* form_a, const char* form_b, const int* m, const int* n, const int* k, const double* alpha,
            const double* a, const int* lda, const double* b, const int* ldb, const double* beta, double* c,
            const int* ldc);
void dsyrk_(const char* part, const char* form, const int* n, const int* k, const double* alpha, const double* a,
            const int* lda, const double* beta, double* c, const int* ldc);
void dgetrf_(const int* m, const int* n, double* a, const int* lda, int* pivots, int* info);
void dgetri_(const int* n, double* a, const int* lda, const int* pivots, double* work, const int* cells, int* info);
void dsyev_(const char* job, const char* half, const int* n, double* a, const int* lda, double* values, double* work,
            const int* work_cells, int* info);
void dgeev_(const char* left, const char* right, const int* n, double* a, const int* lda, double* real,
            double* imaginary, double* vl, const int* ldvl, double* vr, const int* ldvr, double* work,
            const int* work_cells, int* info);
void dgesvd_(const char* job_u, const char* job_v, const int* m, const int* n, double* a, const int* lda,
             double* values, double* u, const int* ldu, double* vt, const int* ldvt, double* work,
             const int* work_cells, int* info);
}
