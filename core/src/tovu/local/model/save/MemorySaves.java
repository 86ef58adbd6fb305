package tovu.local.model.save;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.OutputStream;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import tovu.local.model.port.SaveStore;

/** Saves that end with their federation execution. */
public final class MemorySaves implements SaveStore {
    private final Map<String, byte[]> saves = new ConcurrentHashMap<>();

    @Override
    public boolean isQuick() {
        return true;
    }

    @Override
    public Draft draft(String label) {
        ByteArrayOutputStream content = new ByteArrayOutputStream();
        return new Draft() {
            @Override
            public OutputStream content() {
                return content;
            }

            @Override
            public void complete() {
                // memory is as lasting as it gets
            }

            @Override
            public void publish() {
                saves.put(label, content.toByteArray());
            }

            @Override
            public void close() {
                // the garbage collector discards
            }
        };
    }

    @Override
    public Found find(String label) {
        byte[] content = saves.get(label);
        return content == null ? null : new Found(new ByteArrayInputStream(content), content.length);
    }
}
