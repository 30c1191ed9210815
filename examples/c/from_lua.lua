-- The library from Lua, by the functions of C alone: luajit from_lua.lua [PATH OF libValueObjectC.so]
local ffi = require 'ffi'

ffi.cdef [[
typedef struct { int32_t decibels, prefix; struct { int32_t unit, exponent; } factors[5]; } vo_unit;
typedef struct { double value, lower, upper; vo_unit unit; int32_t difference, decimals; } vo_measurement;
typedef struct { int32_t status; uint32_t position; char reason[32], suggestion[72], message[400]; } vo_fault;
int vo_unit_parse(char const* text, vo_unit* unit, vo_fault* fault);
int vo_measurement_parse(char const* text, vo_measurement* read, vo_fault* fault);
int vo_measurement_convert(vo_measurement const* x, vo_unit const* target, vo_measurement* converted, vo_fault* fault);
int vo_measurement_format(vo_measurement const* x, char const* format, char* buffer, size_t size, size_t* length,
                          vo_fault* fault);
]]
local library = ffi.load(arg[1] or 'ValueObjectC')

local function try(status, fault)
    if status ~= 0 then
        error(ffi.string(fault.message), 0)
    end
end

-- convert('30 dBm [29, 31]', 'W') gives '1.00 W [0.79, 1.26]'.
local function convert(quantity, unit)
    local x, target, fault = ffi.new 'vo_measurement', ffi.new 'vo_unit', ffi.new 'vo_fault'
    local text = ffi.new 'char[200]'
    try(library.vo_measurement_parse(quantity, x, fault), fault)
    try(library.vo_unit_parse(unit, target, fault), fault)
    try(library.vo_measurement_convert(x, target, x, fault), fault)
    try(library.vo_measurement_format(x, 'b', text, 200, nil, fault), fault)
    return ffi.string(text)
end

print(convert('30 dBm [29, 31]', 'W'))
print(convert('-40 degC', 'degF'))
print(convert('1013.2 ± 0.5 hPa', 'inHg'))
print(select(2, pcall(convert, '5 m', 'm/s')))
