// Numbers of many digits, by MPFR: what a result should be.

#ifndef VARNIX_VALUE_TESTS_REFERENCE_NUMBER_H
#define VARNIX_VALUE_TESTS_REFERENCE_NUMBER_H

#include <gmpxx.h>
#include <mpfr.h> // behind GMP, which it then knows

#include <utility>

namespace Varnix::Value::Tests {

// 4500 bits hold the sum of any two doubles, and their product; what has more digits is rounded there.
class Real {
  public:
    explicit Real(double number = 0.0) {
        mpfr_init2(real, 4500);
        mpfr_set_d(real, number, MPFR_RNDN);
    }
    explicit Real(mpq_class const& number) : Real() { mpfr_set_q(real, number.get_mpq_t(), MPFR_RNDN); }
    Real(Real const& other) : Real() { mpfr_set(real, other.real, MPFR_RNDN); }
    Real& operator=(Real const& other) {
        mpfr_set(real, other.real, MPFR_RNDN);
        return *this;
    }
    ~Real() { mpfr_clear(real); }

    double Down() const { return mpfr_get_d(real, MPFR_RNDD); }
    double Up() const { return mpfr_get_d(real, MPFR_RNDU); }
    double Nearest() const { return mpfr_get_d(real, MPFR_RNDN); }

    friend Real operator+(Real x, Real const& y) { return x.With(mpfr_add, y); }
    friend Real operator-(Real x, Real const& y) { return x.With(mpfr_sub, y); }
    friend Real operator*(Real x, Real const& y) { return x.With(mpfr_mul, y); }
    friend Real operator/(Real x, Real const& y) { return x.With(mpfr_div, y); }
    friend bool operator<(Real const& x, Real const& y) { return mpfr_less_p(x.real, y.real) != 0; }
    friend Real Root(Real x) { return x.With(mpfr_sqrt); }

    // With 300 bits, which is enough where nothing cancels, and takes a tenth of the time.
    friend Real Ten_to(Real x) { return x.Shortly(mpfr_exp10); }
    friend Real Log_ten(Real x) { return x.Shortly(mpfr_log10); }
    friend Real Ten_to_less_one(Real const& x) {
        Real ten(10.0);
        return (x * ten.Shortly(mpfr_log)).Shortly(mpfr_expm1);
    }

    friend Real Raised(Real x, long power) {
        mpfr_pow_si(x.real, x.real, power, MPFR_RNDN);
        return x;
    }

    static Real Pi() {
        Real pi;
        mpfr_const_pi(pi.real, MPFR_RNDN);
        return pi;
    }
    static Real Ln_ten() {
        Real ten(10.0);
        mpfr_log(ten.real, ten.real, MPFR_RNDN);
        return ten;
    }

  private:
    template <typename Function>
    Real& With(Function function, Real const& y) {
        function(real, real, y.real, MPFR_RNDN);
        return *this;
    }
    template <typename Function>
    Real& With(Function function) {
        function(real, real, MPFR_RNDN);
        return *this;
    }
    template <typename Function>
    Real& Shortly(Function function) {
        mpfr_t result;
        mpfr_init2(result, 300);
        function(result, real, MPFR_RNDN);
        mpfr_set(real, result, MPFR_RNDN);
        mpfr_clear(result);
        return *this;
    }

    mpfr_t real;
};

} // namespace Varnix::Value::Tests

#endif
