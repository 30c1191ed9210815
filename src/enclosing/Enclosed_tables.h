// Constants and tables as sums of two doubles, made by tools/make_enclosure_tables.py.

#ifndef VARNIX_VALUE_ENCLOSING_ENCLOSED_TABLES_H
#define VARNIX_VALUE_ENCLOSING_ENCLOSED_TABLES_H

#include "Enclosed.h"

namespace Varnix::Value::Physics {

// What the two doubles of an entry leave out at most, in the place of its high part.
inline constexpr double table_error = 0x1p-106;

// clang-format off

inline constexpr Enclosed pi               = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54, table_error, 1};
inline constexpr Enclosed ln_10            = {0x1.26bb1bbb55516p+0, -0x1.f48ad494ea3e9p-54, table_error, 1};
inline constexpr Enclosed ln_2             = {0x1.62e42fefa39efp+0, 0x1.abc9e3b39803fp-55, table_error, -1};
inline constexpr Enclosed log10_2          = {0x1.34413509f79ffp+0, -0x1.9dc1da994fd21p-57, table_error, -2};
inline constexpr Enclosed two_over_ln_10   = {0x1.bcb7b1526e50ep+0, 0x1.95355baaafad3p-55, table_error, -1};
inline constexpr Enclosed two_over_3_ln_10 = {0x1.287a7636f435fp+0, -0x1.9c871838e0373p-55, table_error, -2};
inline constexpr Enclosed one_6th          = {0x1.5555555555555p+0, 0x1.5555555555555p-54, table_error, -3};
inline constexpr Enclosed one_24th         = {0x1.5555555555555p+0, 0x1.5555555555555p-54, table_error, -5};

// exp(j / 64), from j = -23.
inline constexpr int First_exponential = -23;
inline constexpr Enclosed exponentials[] = {
    {0x1.656f00bf5796ap+0, 0x1.93e6dd6872d13p-54, table_error, -1}, // -23
    {0x1.6b0ff72deb89dp+0, -0x1.dabf5975c0c02p-56, table_error, -1}, // -22
    {0x1.70c79eba33c07p+0, -0x1.58b71227465a1p-54, table_error, -1}, // -21
    {0x1.769652df22f7ep+0, 0x1.3445f7544e0efp-56, table_error, -1}, // -20
    {0x1.7c7c70887763cp+0, -0x1.09aa682553231p-59, table_error, -1}, // -19
    {0x1.827a561889716p+0, -0x1.6b2eab63020c1p-56, table_error, -1}, // -18
    {0x1.8890636e31f54p+0, 0x1.d9c29d8d982edp-55, table_error, -1}, // -17
    {0x1.8ebef9eac820bp+0, -0x1.797d4686c5393p-56, table_error, -1}, // -16
    {0x1.95067c78379f2p+0, 0x1.f483a3e8cd60fp-54, table_error, -1}, // -15
    {0x1.9b674f8f2f3d8p+0, -0x1.51bfdbb129094p-54, table_error, -1}, // -14
    {0x1.a1e1d93d687d0p+0, 0x1.e3a6bdaece8f9p-57, table_error, -1}, // -13
    {0x1.a876812c0877cp+0, -0x1.fd36226fadd44p-55, table_error, -1}, // -12
    {0x1.af25b0a61a7b5p+0, -0x1.676a52a1a618bp-54, table_error, -1}, // -11
    {0x1.b5efd29f24c26p+0, 0x1.3d5fd7d70a5edp-55, table_error, -1}, // -10
    {0x1.bcd553b9d7b62p+0, 0x1.6ad4c353465b0p-60, table_error, -1}, // -9
    {0x1.c3d6a24ed8222p+0, -0x1.e1e0a76cb0685p-54, table_error, -1}, // -8
    {0x1.caf42e73a4c7ep+0, -0x1.b5beee8bcee31p-54, table_error, -1}, // -7
    {0x1.d22e6a0197c03p+0, -0x1.32ae7bdaf1116p-54, table_error, -1}, // -6
    {0x1.d985c89d041a3p+0, 0x1.8798de3138a56p-56, table_error, -1}, // -5
    {0x1.e0fabfbc702a4p+0, -0x1.8d0e700fcfb65p-55, table_error, -1}, // -4
    {0x1.e88dc6afecfc0p+0, -0x1.38e62149c16e2p-54, table_error, -1}, // -3
    {0x1.f03f56a88b5d8p+0, -0x1.bad3fd501a227p-54, table_error, -1}, // -2
    {0x1.f80feabfeefa5p+0, -0x1.b60bbd08aac55p-54, table_error, -1}, // -1
    {1.0, 0.0, 0.0, 0}, // 0
    {0x1.04080ab55de39p+0, 0x1.7ab864b3e9045p-56, table_error, 0}, // 1
    {0x1.08205601127edp+0, -0x1.9c7d0bdf15160p-54, table_error, 0}, // 2
    {0x1.0c49236829e8cp+0, -0x1.eb6980ce14da7p-55, table_error, 0}, // 3
    {0x1.1082b577d34edp+0, 0x1.f56c680678897p-54, table_error, 0}, // 4
    {0x1.14cd4fc989cd6p+0, 0x1.1557a8671b89ep-54, table_error, 0}, // 5
    {0x1.192937074e0cdp+0, 0x1.a24f46336ea04p-54, table_error, 0}, // 6
    {0x1.1d96b0eff0e79p+0, 0x1.e8ac7a4d3206cp-55, table_error, 0}, // 7
    {0x1.2216045b6f5cdp+0, -0x1.8c4a5df1ec7e5p-58, table_error, 0}, // 8
    {0x1.26a7793f60164p+0, 0x1.5aeb9860044d0p-55, table_error, 0}, // 9
    {0x1.2b4b58b372c79p+0, 0x1.404dd9f031676p-54, table_error, 0}, // 10
    {0x1.3001ecf601af7p+0, 0x1.7ab912c69ffebp-61, table_error, 0}, // 11
    {0x1.34cb8170b5835p+0, 0x1.6a7062465be33p-55, table_error, 0}, // 12
    {0x1.39a862bd3c106p+0, 0x1.7dd1a79cbd0fcp-54, table_error, 0}, // 13
    {0x1.3e98deaa11dccp+0, -0x1.5722108fefcffp-54, table_error, 0}, // 14
    {0x1.439d443f5f159p+0, -0x1.1c5b2e8735a43p-56, table_error, 0}, // 15
    {0x1.48b5e3c3e8186p+0, 0x1.9d9ef0eda6eabp-54, table_error, 0}, // 16
    {0x1.4de30ec211e60p+0, 0x1.3b5223eca1712p-56, table_error, 0}, // 17
    {0x1.5325180cfacf7p+0, 0x1.b28b660a648dap-54, table_error, 0}, // 18
    {0x1.587c53c5a7af0p+0, 0x1.3b0e93c017937p-55, table_error, 0}, // 19
    {0x1.5de9176045ff5p+0, 0x1.da89923298baap-55, table_error, 0}, // 20
    {0x1.636bb9a983258p+0, 0x1.349cc31f7248dp-54, table_error, 0}, // 21
    {0x1.690492cbf9433p+0, -0x1.812833f7d6e43p-55, table_error, 0}, // 22
    {0x1.6eb3fc55b1e76p+0, -0x1.2d8a6cc888d03p-54, table_error, 0}, // 23
};

// A short number close to 128 / (j + 1/2), and minus its logarithm to base ten; from j = 90.
struct Logarithm_entry {
    double reciprocal;
    Enclosed logarithm;
};
inline constexpr int First_logarithm = 90;
inline constexpr Logarithm_entry logarithms[] = {
    {0x1.6a00000000000p+0, {-0x1.3428e2540096dp+0, -0x1.db19f0230af8bp-55, table_error, -3}}, // 90
    {0x1.6600000000000p+0, {-0x1.2a46e8ca7ba2ap+0, 0x1.aa8c8a1f1c5fbp-54, table_error, -3}}, // 91
    {0x1.6200000000000p+0, {-0x1.204881dee8777p+0, -0x1.54b04da9d7f6dp-54, table_error, -3}}, // 92
    {0x1.5e80000000000p+0, {-0x1.1772143306dc6p+0, 0x1.1989e19961411p-55, table_error, -3}}, // 93
    {0x1.5b00000000000p+0, {-0x1.0e84f1dadb526p+0, -0x1.574d5e4d23b1cp-54, table_error, -3}}, // 94
    {0x1.5700000000000p+0, {-0x1.0434f7fb1f307p+0, 0x1.00052af97037fp-54, table_error, -3}}, // 95
    {0x1.5380000000000p+0, {-0x1.f62b38ca3a706p+0, 0x1.13483b382855fp-54, table_error, -4}}, // 96
    {0x1.5000000000000p+0, {-0x1.e3bc1ab0e19fep+0, -0x1.eab1529f83ac7p-55, table_error, -4}}, // 97
    {0x1.4c80000000000p+0, {-0x1.d11b92297632bp+0, 0x1.f2452d6aa8663p-54, table_error, -4}}, // 98
    {0x1.4980000000000p+0, {-0x1.c0fc2246d20f5p+0, 0x1.5b32b63f8cea9p-55, table_error, -4}}, // 99
    {0x1.4600000000000p+0, {-0x1.adfd07416be07p+0, 0x1.448acb08c4bcap-59, table_error, -4}}, // 100
    {0x1.4300000000000p+0, {-0x1.9d8aea084aa9cp+0, 0x1.4945caae41546p-56, table_error, -4}}, // 101
    {0x1.3f80000000000p+0, {-0x1.8a2968c438d41p+0, -0x1.213f525bbc280p-54, table_error, -4}}, // 102
    {0x1.3c80000000000p+0, {-0x1.79613cefdc07dp+0, -0x1.738f0e6542972p-54, table_error, -4}}, // 103
    {0x1.3980000000000p+0, {-0x1.68702679a980ap+0, -0x1.d3855bf43e9f7p-59, table_error, -4}}, // 104
    {0x1.3680000000000p+0, {-0x1.57555bf1077f5p+0, 0x1.19abf2df81fe5p-57, table_error, -4}}, // 105
    {0x1.3380000000000p+0, {-0x1.46100e0750da1p+0, -0x1.b81cda8b11c67p-56, table_error, -4}}, // 106
    {0x1.3100000000000p+0, {-0x1.378a8ef84971ep+0, -0x1.8847c4d88be3fp-56, table_error, -4}}, // 107
    {0x1.2e00000000000p+0, {-0x1.25f5215eb594ap+0, 0x1.06ad025ca3a44p-55, table_error, -4}}, // 108
    {0x1.2b80000000000p+0, {-0x1.172ba62c4d6dep+0, 0x1.1fa6d267d724bp-56, table_error, -4}}, // 109
    {0x1.2880000000000p+0, {-0x1.054323b97a948p+0, 0x1.f836d4c0514e6p-55, table_error, -4}}, // 110
    {0x1.2600000000000p+0, {-0x1.ec6647eb58808p+0, -0x1.1f406230b3528p-54, table_error, -5}}, // 111
    {0x1.2380000000000p+0, {-0x1.ce046c7ada68dp+0, -0x1.191d15dba6ecap-54, table_error, -5}}, // 112
    {0x1.2080000000000p+0, {-0x1.a9367632ad897p+0, 0x1.bc8394522dac2p-55, table_error, -5}}, // 113
    {0x1.1e00000000000p+0, {-0x1.8a3fadeb847f4p+0, 0x1.b144b06126f68p-54, table_error, -5}}, // 114
    {0x1.1b80000000000p+0, {-0x1.6b034d4ad33dfp+0, -0x1.489bd0fd1f639p-54, table_error, -5}}, // 115
    {0x1.1980000000000p+0, {-0x1.51d3439aacd4ap+0, -0x1.d7c93c105ddb9p-55, table_error, -5}}, // 116
    {0x1.1700000000000p+0, {-0x1.32167c82bdcdap+0, 0x1.92b9251ee5832p-54, table_error, -5}}, // 117
    {0x1.1480000000000p+0, {-0x1.121093ce3a205p+0, 0x1.204af424beec4p-57, table_error, -5}}, // 118
    {0x1.1200000000000p+0, {-0x1.e3806acbd058fp+0, -0x1.af3eb3b443356p-57, table_error, -6}}, // 119
    {0x1.1000000000000p+0, {-0x1.af5f92b00e610p+0, 0x1.6487d64961833p-54, table_error, -6}}, // 120
    {0x1.0d80000000000p+0, {-0x1.6dabd98afcc05p+0, -0x1.268a8b637a329p-56, table_error, -6}}, // 121
    {0x1.0b80000000000p+0, {-0x1.38ab58d173e91p+0, 0x1.60922fce3a2a4p-54, table_error, -6}}, // 122
    {0x1.0980000000000p+0, {-0x1.0345040825badp+0, 0x1.656aaec3f131bp-55, table_error, -6}}, // 123
    {0x1.0700000000000p+0, {-0x1.7fe71ccc4e6b0p+0, -0x1.8d4a223a5f7c9p-54, table_error, -7}}, // 124
    {0x1.0500000000000p+0, {-0x1.1344daa2d7553p+0, 0x1.9383502395c53p-54, table_error, -7}}, // 125
    {0x1.0300000000000p+0, {-0x1.4b99563d2a1bdp+0, -0x1.fb495d6440f14p-57, table_error, -8}}, // 126
    {0x1.0000000000000p+0, {0.0, 0.0, 0.0, 0}}, // 127
    {0x1.0000000000000p+0, {0.0, 0.0, 0.0, 0}}, // 128
    {0x1.fa00000000000p-1, {0x1.4f8205235102dp+0, -0x1.a8fc8e6f1cac2p-54, table_error, -8}}, // 129
    {0x1.f600000000000p-1, {0x1.18b2dc8d2bb91p+0, -0x1.bcae68eaf213fp-56, table_error, -7}}, // 130
    {0x1.f200000000000p-1, {0x1.8a8c06bb1d2f4p+0, 0x1.f758cf20ab67dp-58, table_error, -7}}, // 131
    {0x1.ef00000000000p-1, {0x1.e088f0b004827p+0, -0x1.e607eb2a3908bp-55, table_error, -7}}, // 132
    {0x1.eb00000000000p-1, {0x1.29fff7b8ca79dp+0, 0x1.6210c78e102c6p-55, table_error, -6}}, // 133
    {0x1.e700000000000p-1, {0x1.64345cbd3a491p+0, -0x1.82e7594f180b4p-54, table_error, -6}}, // 134
    {0x1.e400000000000p-1, {0x1.902c31d62a843p+0, 0x1.d5af81a520735p-54, table_error, -6}}, // 135
    {0x1.e000000000000p-1, {0x1.cb38fccd8bfdbp+0, 0x1.a5aca518d962ep-54, table_error, -6}}, // 136
    {0x1.dd00000000000p-1, {0x1.f7d57badb4ee8p+0, -0x1.9dc1111e3b44cp-55, table_error, -6}}, // 137
    {0x1.d900000000000p-1, {0x1.19e086b3b8333p+0, 0x1.60fea21f201b9p-54, table_error, -5}}, // 138
    {0x1.d600000000000p-1, {0x1.30838cdc2fbfdp+0, -0x1.2f7a1b585d96fp-58, table_error, -5}}, // 139
    {0x1.d200000000000p-1, {0x1.4eec0e2458f30p+0, -0x1.978c592e6c139p-58, table_error, -5}}, // 140
    {0x1.cf00000000000p-1, {0x1.65e6692547c4ep+0, 0x1.856c063a9d0bcp-54, table_error, -5}}, // 141
    {0x1.cc00000000000p-1, {0x1.7d070145f4fd7p+0, 0x1.2d4e10b03cee8p-54, table_error, -5}}, // 142
    {0x1.c900000000000p-1, {0x1.944e56a0d3450p+0, -0x1.76df54932f73ep-54, table_error, -5}}, // 143
    {0x1.c600000000000p-1, {0x1.abbcebd84fca0p+0, -0x1.97d2cb982dac2p-55, table_error, -5}}, // 144
    {0x1.c200000000000p-1, {0x1.cb38fccd8bfdbp+0, 0x1.a5aca518d962ep-54, table_error, -5}}, // 145
    {0x1.bf00000000000p-1, {0x1.e30531c76c34ap+0, 0x1.32de632195123p-55, table_error, -5}}, // 146
    {0x1.bc00000000000p-1, {0x1.fafa6d397efdbp+0, 0x1.62f731cfeb27bp-56, table_error, -5}}, // 147
    {0x1.b900000000000p-1, {0x1.098c9ec61b3ffp+0, 0x1.466dc013d46a9p-54, table_error, -4}}, // 148
    {0x1.b600000000000p-1, {0x1.15b11a094a1aap+0, -0x1.6a232c37f20c5p-54, table_error, -4}}, // 149
    {0x1.b300000000000p-1, {0x1.21eaf28f57941p+0, 0x1.a0dec3a5a500cp-54, table_error, -4}}, // 150
    {0x1.b100000000000p-1, {0x1.2a1d86b49f1e2p+0, 0x1.85a155bb65408p-54, table_error, -4}}, // 151
    {0x1.ae00000000000p-1, {0x1.367ba3aaa1883p+0, -0x1.de49ddb15fb04p-54, table_error, -4}}, // 152
    {0x1.ab00000000000p-1, {0x1.42efeb4b506e9p+0, -0x1.8fb6b118c310fp-54, table_error, -4}}, // 153
    {0x1.a800000000000p-1, {0x1.4f7aad9bbcbafp+0, -0x1.5d69e39196f27p-55, table_error, -4}}, // 154
    {0x1.a500000000000p-1, {0x1.5c1c3c5557799p+0, 0x1.81f647ea24688p-55, table_error, -4}}, // 155
    {0x1.a300000000000p-1, {0x1.6494c46ac6e4dp+0, 0x1.ad1738d96af06p-54, table_error, -4}}, // 156
    {0x1.a000000000000p-1, {0x1.715d0ce367afcp+0, -0x1.49840eaa6487bp-54, table_error, -4}}, // 157
    {0x1.9d00000000000p-1, {0x1.7e3d04697b704p+0, -0x1.d12e032a3b7afp-55, table_error, -4}}, // 158
    {0x1.9b00000000000p-1, {0x1.86dfa808d36a0p+0, -0x1.376c04717405ep-54, table_error, -4}}, // 159
    {0x1.9800000000000p-1, {0x1.93e7de0fc3e80p+0, -0x1.d0d01941798b6p-54, table_error, -4}}, // 160
    {0x1.9600000000000p-1, {0x1.9ca5aa1729f45p+0, -0x1.62d3ed69292b0p-54, table_error, -4}}, // 161
    {0x1.9300000000000p-1, {0x1.a9d71d5258484p+0, -0x1.f648977febad9p-55, table_error, -4}}, // 162
    {0x1.9100000000000p-1, {0x1.b2b0beb419ad0p+0, 0x1.5689de26b43ffp-55, table_error, -4}}, // 163
    {0x1.8e00000000000p-1, {0x1.c00c7767225cbp+0, -0x1.b1e2e67b6f4bfp-54, table_error, -4}}, // 164
    {0x1.8c00000000000p-1, {0x1.c902a19e65111p+0, 0x1.ce424933542a9p-54, table_error, -4}}, // 165
    {0x1.8a00000000000p-1, {0x1.d204698cb42bdp+0, -0x1.667bf89866ccap-54, table_error, -4}}, // 166
    {0x1.8700000000000p-1, {0x1.df9d1f7f5b674p+0, 0x1.5c6bc5d06e932p-54, table_error, -4}}, // 167
    {0x1.8500000000000p-1, {0x1.e8bc77271b97ap+0, -0x1.7240569ddebccp-54, table_error, -4}}, // 168
    {0x1.8300000000000p-1, {0x1.f1e7d882b689ap+0, 0x1.0955b9d99c1b8p-54, table_error, -4}}, // 169
    {0x1.8000000000000p-1, {0x1.ffbfc2bbc7803p+0, 0x1.d60df12c2e13dp-54, table_error, -4}}, // 170
    {0x1.7e00000000000p-1, {0x1.0484e4942aa43p+0, 0x1.f318aa3021710p-55, table_error, -3}}, // 171
    {0x1.7c00000000000p-1, {0x1.093025a19976cp+0, -0x1.a12a1c0cb3d7fp-54, table_error, -3}}, // 172
    {0x1.7a00000000000p-1, {0x1.0de1b56356b04p+0, 0x1.5b619c844d28bp-54, table_error, -3}}, // 173
    {0x1.7800000000000p-1, {0x1.1299a4fb3e306p+0, -0x1.ce6c847a6598dp-54, table_error, -3}}, // 174
    {0x1.7500000000000p-1, {0x1.19b9a637ca295p+0, -0x1.e785b3b894bd7p-54, table_error, -3}}, // 175
    {0x1.7300000000000p-1, {0x1.1e81d22b790d4p+0, 0x1.db81c3374e59ep-54, table_error, -3}}, // 176
    {0x1.7100000000000p-1, {0x1.23509c1e6d937p+0, 0x1.ea54c137b0aeap-54, table_error, -3}}, // 177
    {0x1.6f00000000000p-1, {0x1.2826167a6bc9cp+0, 0x1.557d4cdeffe3fp-54, table_error, -3}}, // 178
    {0x1.6d00000000000p-1, {0x1.2d0253f67e4cbp+0, -0x1.3dda694b5fe22p-54, table_error, -3}}, // 179
    {0x1.6b00000000000p-1, {0x1.31e56798a910ap+0, 0x1.4b79d1957630ap-55, table_error, -3}}, // 180
    {0x1.6900000000000p-1, {0x1.36cf64b7a82e6p+0, -0x1.b903e6347000fp-56, table_error, -3}}, // 181
    {0x1.6700000000000p-1, {0x1.3bc05efcbb185p+0, -0x1.c9920bddba6eap-54, table_error, -3}}, // 182
};

// clang-format on

} // namespace Varnix::Value::Physics

#endif
