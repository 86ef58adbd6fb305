package tovu.local.wire;

/** What services return, on the wire: a code for the Java type, and the value. */
public enum Result {
    NOTHING(Void.class) {
        @Override
        void put(FrameWriter out, Object value) {
            // nothing
        }

        @Override
        Object take(FrameReader in) {
            return null;
        }
    },
    INTEGER(Integer.class) {
        @Override
        void put(FrameWriter out, Object value) {
            out.integer((Integer) value);
        }

        @Override
        Object take(FrameReader in) {
            return in.integer();
        }
    },
    LONG(Long.class) {
        @Override
        void put(FrameWriter out, Object value) {
            out.longInteger((Long) value);
        }

        @Override
        Object take(FrameReader in) {
            return in.longInteger();
        }
    },
    REAL(Double.class) {
        @Override
        void put(FrameWriter out, Object value) {
            out.longInteger(Double.doubleToRawLongBits((Double) value));
        }

        @Override
        Object take(FrameReader in) {
            return Double.longBitsToDouble(in.longInteger());
        }
    },
    FLAG(Boolean.class) {
        @Override
        void put(FrameWriter out, Object value) {
            out.flag((Boolean) value);
        }

        @Override
        Object take(FrameReader in) {
            return in.flag();
        }
    },
    TEXT(String.class) {
        @Override
        void put(FrameWriter out, Object value) {
            out.text((String) value);
        }

        @Override
        Object take(FrameReader in) {
            return in.text();
        }
    },
    BYTES(byte[].class) {
        @Override
        void put(FrameWriter out, Object value) {
            out.bytes((byte[]) value);
        }

        @Override
        Object take(FrameReader in) {
            return in.bytes();
        }
    },
    INTEGERS(int[].class) {
        @Override
        void put(FrameWriter out, Object value) {
            int[] numbers = (int[]) value;
            out.integer(numbers.length);
            for (int number : numbers) {
                out.integer(number);
            }
        }

        @Override
        Object take(FrameReader in) {
            int[] numbers = new int[in.count(Integer.BYTES)];
            for (int i = 0; i < numbers.length; ++i) {
                numbers[i] = in.integer();
            }
            return numbers;
        }
    },
    LONGS(long[].class) {
        @Override
        void put(FrameWriter out, Object value) {
            long[] numbers = (long[]) value;
            out.integer(numbers.length);
            for (long number : numbers) {
                out.longInteger(number);
            }
        }

        @Override
        Object take(FrameReader in) {
            long[] numbers = new long[in.count(Long.BYTES)];
            for (int i = 0; i < numbers.length; ++i) {
                numbers[i] = in.longInteger();
            }
            return numbers;
        }
    };

    private static final Result[] ALL = values();

    private final Class<?> type;

    Result(Class<?> type) {
        this.type = type;
    }

    abstract void put(FrameWriter out, Object value);

    abstract Object take(FrameReader in);

    /** @param value of one of the types, or null for nothing */
    public static void write(FrameWriter out, Object value) {
        Result result = NOTHING;
        for (Result each : ALL) {
            result = each.type.isInstance(value) ? each : result;
        }
        result.put(out.octet(result.ordinal()), value);
    }

    public static Object read(FrameReader in) {
        int code = in.octet();
        if (code >= ALL.length) {
            throw new MalformedFrame("a result of the unknown kind " + code);
        }
        return ALL[code].take(in);
    }
}
