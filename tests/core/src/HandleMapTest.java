import java.util.Objects;
import java.util.Random;
import java.util.TreeMap;
import tovu.local.model.value.HandleMap;

/** That a handle map holds what any map would, also where many handles want one place, or the last one. */
final class HandleMapTest {
    public static void main(String[] arguments) {
        Harness.run(() -> play(1, 0), () -> play(64, 0), () -> play(8, 7), () -> play(Integer.MAX_VALUE / 40, 0));
    }

    private static void play(int stride, int offset) {
        Random random = new Random(stride);
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
            assert Objects.equals(map.get(asked), expected.get(asked)) : asked;
            assert map.values().stream().sorted().toList().equals(expected.values().stream().sorted().toList());
        }
    }
}
