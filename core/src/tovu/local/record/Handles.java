package tovu.local.record;

import java.nio.ByteBuffer;
import java.util.HashMap;
import java.util.Map;
import java.util.Objects;
import morva.tovu1516e.RecordedCalls;

/** Which handles of a recording are which now: what the hub gave then, and gives in the same place now. */
final class Handles implements RecordedCalls.Handles {
    private final Map<Integer, Integer> objects = new HashMap<>();
    private final Map<Integer, Integer> federates = new HashMap<>();
    private final Map<Integer, Integer> regions = new HashMap<>();
    private final Map<Integer, Integer> retractions = new HashMap<>();

    @Override
    public int object(int handle) {
        return objects.getOrDefault(handle, handle);
    }

    @Override
    public int federate(int handle) {
        return federates.getOrDefault(handle, handle);
    }

    @Override
    public int region(int handle) {
        return regions.getOrDefault(handle, handle);
    }

    @Override
    public int retraction(int handle) {
        return retractions.getOrDefault(handle, handle);
    }

    /**
     * What a service returned then and now.
     *
     * @return whether that is the same, or becomes so by which handles are which
     */
    boolean agree(String service, Object then, Object now) {
        if (then instanceof Integer old && now instanceof Integer handle) {
            return switch (service) {
                case "registerObjectInstance", "registerObjectInstanceWithRegions" -> learn(objects, old, handle);
                case "joinFederationExecution" -> learn(federates, old, handle);
                case "createRegion" -> learn(regions, old, handle);
                case "getObjectInstanceHandle" -> object(old) == handle;
                case "getFederateHandle" -> federate(old) == handle;
                default -> old.equals(handle);
            };
        }
        if (then instanceof byte[] old && now instanceof byte[] fresh && !service.startsWith("query")) {
            return learn(retractions, ByteBuffer.wrap(old).getInt(), ByteBuffer.wrap(fresh).getInt());
        }
        return Objects.deepEquals(then, now);
    }

    /** An object has been discovered, then and now. */
    void discovered(int then, int now) {
        learn(objects, then, now);
    }

    private static boolean learn(Map<Integer, Integer> map, int then, int now) {
        map.put(then, now);
        return true;
    }
}
