import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.Random;
import java.util.TreeMap;
import tovu.local.model.HandleMap;

/** That a handle map holds what any map would, however many handles want the same place. */
final class HandleMapTest {
    private HandleMapTest() {
    }

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("handles in a row", () -> play(new Random(1), 1, 0));
        harness.run("handles for few places", () -> play(new Random(2), 64, 0));
        harness.run("handles for the end of the table", () -> play(new Random(3), 8, 7));
        harness.run("great handles", () -> play(new Random(4), Integer.MAX_VALUE / 40, 0));
        harness.finish();
    }

    private static void play(Random random, int stride, int offset) {
        HandleMap<String> map = new HandleMap<>();
        TreeMap<Integer, String> expected = new TreeMap<>();
        for (int i = 0; i < 20000; ++i) {
            int handle = offset + stride * (1 + random.nextInt(i % 5000 < 2500 ? 36 : 4));
            if (random.nextInt(3) == 0) {
                map.remove(handle);
                expected.remove(handle);
            } else {
                map.put(handle, "value " + i);
                expected.put(handle, "value " + i);
            }
            int asked = offset + stride * (1 + random.nextInt(36));
            Harness.equal(map.get(asked), expected.get(asked));
            Harness.equal(sorted(map.values()), sorted(expected.values()));
        }
    }

    private static List<String> sorted(Iterable<String> values) {
        List<String> list = new ArrayList<>();
        values.forEach(list::add);
        Collections.sort(list);
        return list;
    }
}
