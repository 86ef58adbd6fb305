package morva.tovu1516e;

import hla.rti1516e.exceptions.InvalidLogicalTime;
import hla.rti1516e.exceptions.InvalidLookahead;
import java.lang.invoke.MethodHandles;
import java.lang.invoke.VarHandle;
import java.nio.ByteOrder;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import tovu.local.fom.ModuleSource;
import tovu.local.model.exchange.RegionManagement;
import tovu.local.model.value.HandleValues;
import tovu.local.model.value.Timing;

/** Reads the arguments of one service message in their order. A message shorter than its arguments is a fault. */
class MessageReader {
    private static final VarHandle INTEGER = MethodHandles.byteArrayViewVarHandle(int[].class, ByteOrder.BIG_ENDIAN);
    private static final VarHandle LONG = MethodHandles.byteArrayViewVarHandle(long[].class, ByteOrder.BIG_ENDIAN);
    private static final byte[] NO_BYTES = {};
    private static final int[] NO_HANDLES = {};

    private final byte[] message;
    private int position;

    MessageReader(byte[] message) {
        this.message = message;
    }

    private int advance(int size) {
        int start = position;
        if (size > message.length - start) {
            throw new MalformedMessage();
        }
        position = start + size;
        return start;
    }

    int integer() {
        return (int) INTEGER.get(message, advance(Integer.BYTES));
    }

    int octet() {
        return message[advance(1)] & 0xFF;
    }

    int handle() {
        return integer();
    }

    boolean flag() {
        return integer() != 0;
    }

    long longInteger() {
        return (long) LONG.get(message, advance(Long.BYTES));
    }

    double real() {
        return Double.longBitsToDouble(longInteger());
    }

    /** A number of things of which each takes some bytes. */
    private int count(int bytesEach) {
        int count = Math.max(0, integer());
        if (count > (message.length - position) / bytesEach) {
            throw new MalformedMessage();
        }
        return count;
    }

    String text() {
        int length = count(Character.BYTES);
        int start = advance(length * Character.BYTES);
        char[] characters = new char[length];
        for (int i = 0; i < length; ++i) {
            characters[i] = (char) (message[start + 2 * i] << 8 | message[start + 2 * i + 1] & 0xFF);
        }
        return new String(characters);
    }

    /** A FOM module or MIM that is read in this process. */
    ModuleSource module() {
        return ModuleSource.file(text());
    }

    final List<ModuleSource> modules() {
        List<ModuleSource> modules = new ArrayList<>();
        for (int left = count(Integer.BYTES); left > 0; --left) {
            modules.add(module());
        }
        return modules;
    }

    Set<String> textSet() {
        Set<String> texts = new TreeSet<>();
        for (int left = count(Integer.BYTES); left > 0; --left) {
            texts.add(text());
        }
        return texts;
    }

    byte[] bytes() {
        int length = count(1);
        int start = advance(length);
        return length == 0 ? NO_BYTES : Arrays.copyOfRange(message, start, start + length);
    }

    int[] handles() {
        int count = count(Integer.BYTES);
        if (count == 0) {
            return NO_HANDLES;
        }
        int[] handles = new int[count];
        for (int i = 0; i < count; ++i) {
            handles[i] = integer();
        }
        return handles;
    }

    Set<Integer> handleSet() {
        Set<Integer> set = new TreeSet<>();
        for (int handle : handles()) {
            set.add(handle);
        }
        return set;
    }

    /** Values, if there are any, stay where they are: the message is theirs from now on. */
    HandleValues values() {
        int count = count(2 * Integer.BYTES);
        int[] rows = new int[Math.multiplyExact(count, 3)];
        for (int i = 0; i < count; ++i) {
            rows[3 * i] = integer();
            int length = count(1);
            rows[3 * i + 1] = advance(length);
            rows[3 * i + 2] = length;
        }
        return new HandleValues(count == 0 ? NO_BYTES : message, rows, count);
    }

    List<RegionManagement.Pair> regionPairs() {
        List<RegionManagement.Pair> pairs = new ArrayList<>();
        for (int left = count(2 * Integer.BYTES); left > 0; --left) {
            pairs.add(new RegionManagement.Pair(handles(), handles()));
        }
        return pairs;
    }

    private boolean isTimeLeft() {
        return message.length - position == Long.BYTES;
    }

    private String sizeFault(String what) {
        return "The " + what + "'s encoding has " + (message.length - position)
                + " bytes, not 8; use one of the federation's own logical time implementation";
    }

    /** The eight bytes of a time, which is all the rest of the message. */
    long time() throws InvalidLogicalTime {
        if (!isTimeLeft()) {
            throw new InvalidLogicalTime(sizeFault("logical time"));
        }
        return longInteger();
    }

    Timing timing() throws InvalidLogicalTime {
        return Timing.at(time());
    }

    /** The eight bytes of an interval, which is all the rest of the message. */
    long interval() throws InvalidLookahead {
        if (!isTimeLeft()) {
            throw new InvalidLookahead(sizeFault("lookahead"));
        }
        return longInteger();
    }
}
